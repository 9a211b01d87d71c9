// An interface for tests that can be called across processes, and an object that has it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstring>
#include <stdexcept>

#include <platform/com/RemoteInterface.h>

namespace orvo {

constexpr IID IID_ICounter{0x6F727601, 1, 2, {1, 2, 3, 4, 5, 6, 7, 8}};

class ICounter : public IUnknown {
public:
    virtual HRESULT Add(std::int64_t number, std::int64_t& total) = 0;

    // Calls the partner's Bounce with one less, until 0; `depth` tells how deep that went.
    virtual HRESULT Bounce(std::int64_t left, std::int64_t& depth) = 0;
    virtual HRESULT Echo(const CallBytes& bytes, CallBytes& same) = 0;
    virtual HRESULT Throw() = 0;

protected:
    ~ICounter() = default;
};

class CounterProxy final : public Proxy<ICounter> {
public:
    using Proxy::Proxy;
    static IUnknown* Make(std::unique_ptr<RemoteObject> remote) {
        return new CounterProxy(std::move(remote));
    }

    HRESULT Add(std::int64_t number, std::int64_t& total) override { return Ask(0, number, total); }
    HRESULT Bounce(std::int64_t left, std::int64_t& depth) override { return Ask(1, left, depth); }
    HRESULT Echo(const CallBytes& bytes, CallBytes& same) override { return Call(2, bytes, same); }
    HRESULT Throw() override {
        CallBytes none;
        return Call(3, {}, none);
    }

private:
    HRESULT Ask(std::uint32_t method, std::int64_t number, std::int64_t& answer) {
        CallBytes arguments(sizeof number);
        std::memcpy(arguments.data(), &number, sizeof number);
        CallBytes results;
        const HRESULT result = Call(method, arguments, results);
        if (results.size() == sizeof answer) std::memcpy(&answer, results.data(), sizeof answer);
        return result;
    }
};

inline HRESULT CallCounter(IUnknown* object, std::uint32_t method, const CallBytes& arguments,
                           CallBytes& results) {
    auto& counter = *static_cast<ICounter*>(object);
    if (method == 2) return counter.Echo(arguments, results);
    if (method == 3) return counter.Throw();
    std::int64_t number = 0;
    std::int64_t answer = 0;
    if (method > 3 || arguments.size() != sizeof number) return E_INVALIDARG;
    std::memcpy(&number, arguments.data(), sizeof number);
    const HRESULT result =
        method == 0 ? counter.Add(number, answer) : counter.Bounce(number, answer);
    results.resize(sizeof answer);
    std::memcpy(results.data(), &answer, sizeof answer);
    return result;
}

inline void RegisterCounter() {
    RegisterInterface(IID_ICounter, &CounterProxy::Make, &CallCounter);
}

class Counter final : public ComObject<ICounter> {
public:
    Counter() : ComObject(IID_ICounter) { ++Living(); }

    // How many counters this process has.
    static int& Living() {
        static int living = 0;
        return living;
    }
    static ComPointer<ICounter>& Partner() {
        static ComPointer<ICounter> partner;
        return partner;
    }

    HRESULT Add(std::int64_t number, std::int64_t& total) override {
        total = m_total += number;
        return S_OK;
    }
    HRESULT Bounce(std::int64_t left, std::int64_t& depth) override {
        depth = 0;
        if (left == 0) return S_OK;
        const ComPointer<ICounter> partner = Partner();
        if (!partner) return E_FAIL;
        const HRESULT result = partner->Bounce(left - 1, depth);
        ++depth;
        return result;
    }
    HRESULT Echo(const CallBytes& bytes, CallBytes& same) override {
        same = bytes;
        return S_FALSE;
    }
    HRESULT Throw() override { throw std::runtime_error("a fault of the object"); }

private:
    ~Counter() override { --Living(); }

    std::int64_t m_total = 0;
};

}  // namespace orvo
