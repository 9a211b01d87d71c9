// Interfaces: their ids, and the one that every object has.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <utility>

#include <platform/Result.h>

namespace orvo {

using ULONG = std::uint32_t;

struct GUID {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::array<std::uint8_t, 8> data4{};

    friend auto operator<=>(const GUID&, const GUID&) = default;
};
using IID = GUID;
using REFIID = const IID&;

constexpr IID IID_IUnknown{0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

class IUnknown {
public:
    // Sets `object` to the interface with a reference of the caller's, or to null with
    // E_NOINTERFACE.
    virtual HRESULT QueryInterface(REFIID id, void** object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    // An object goes with its last reference.
    ~IUnknown() = default;
};

// An object with one interface besides IUnknown, whose own methods remain to be written. It is made
// with one reference of the maker's, and goes with its last one.
template <class Interface>
class ComObject : public Interface {
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        const bool isKnown = id == IID_IUnknown || id == m_id;
        *object = isKnown ? static_cast<Interface*>(this) : nullptr;
        if (!isKnown) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }

protected:
    explicit ComObject(REFIID id) : m_id(id) {}
    virtual ~ComObject() = default;

private:
    IID m_id;
    ULONG m_references = 1;
};

// Holds one reference.
template <class Interface>
class ComPointer {
public:
    ComPointer() = default;
    // Takes over a reference that the caller has.
    explicit ComPointer(Interface* object) : m_object(object) {}
    ComPointer(const ComPointer& other) : m_object(other.m_object) {
        if (m_object) m_object->AddRef();
    }
    ComPointer(ComPointer&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    ComPointer& operator=(ComPointer other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~ComPointer() {
        if (m_object) m_object->Release();
    }

    Interface* Get() const { return m_object; }
    Interface* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

    // Gives the reference to the caller.
    Interface* Detach() { return std::exchange(m_object, nullptr); }

private:
    Interface* m_object = nullptr;
};

}  // namespace orvo
