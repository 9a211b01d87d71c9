// Interfaces that can be called in another process: what stands for them there and here.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <platform/Export.h>
#include <platform/com/Unknown.h>

namespace orvo {

using CallBytes = std::vector<std::uint8_t>;

// An object of another process, which is held there as long as this lives.
class RemoteObject {
public:
    virtual ~RemoteObject() = default;

    virtual REFIID InterfaceId() const = 0;

    // Calls a method and waits for its end; calls and messages that come meanwhile are served.
    // Returns:  what the stub returned, with its bytes in `results`.
    // Fails:    with RPC_E_DISCONNECTED or RPC_E_SERVER_DIED where the other process has ended,
    //           RPC_E_TIMEOUT where it doesn't answer in time, CO_E_OBJNOTCONNECTED where it no
    //           longer exports the object, RPC_E_SERVERFAULT where the stub threw.
    virtual HRESULT Call(std::uint32_t method, const CallBytes& arguments, CallBytes& results) = 0;
};

// Makes what stands for the interface in another process, with one reference of the caller's.
using ProxyMaker = IUnknown* (*)(std::unique_ptr<RemoteObject> remote);

// Calls that method of the interface, to which `object` points, with arguments in the form in which
// the proxy wrote them. They come from another process: a stub checks them and refuses with
// E_INVALIDARG.
using Stub = HRESULT (*)(IUnknown* object, std::uint32_t method, const CallBytes& arguments,
                         CallBytes& results);

struct RemoteInterface {
    ProxyMaker makeProxy = nullptr;
    Stub stub = nullptr;
};

// From now on the interface can be passed to other processes, which register it as well. `object`
// of the stub is what QueryInterface sets for that id, as IUnknown.
ORVO_API void RegisterInterface(REFIID id, ProxyMaker makeProxy, Stub stub);

// Null where that interface isn't registered.
ORVO_API const RemoteInterface* FindInterface(REFIID id);

// What stands for an interface of another process; the methods of the interface itself remain to be
// written with Call.
template <class Interface>
class Proxy : public ComObject<Interface> {
public:
    explicit Proxy(std::unique_ptr<RemoteObject> remote)
        : ComObject<Interface>(remote->InterfaceId()), m_remote(std::move(remote)) {}

protected:
    HRESULT Call(std::uint32_t method, const CallBytes& arguments, CallBytes& results) {
        // The last reference may go while the call waits.
        this->AddRef();
        const HRESULT result = m_remote->Call(method, arguments, results);
        this->Release();
        return result;
    }

private:
    std::unique_ptr<RemoteObject> m_remote;
};

}  // namespace orvo
