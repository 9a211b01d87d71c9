// The session bus as the road on which interfaces are called between processes.
// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <sdbus-c++/sdbus-c++.h>
#include <string>

#include <platform/com/ExportTable.h>
#include <platform/com/ReferencePacket.h>
#include <platform/io/Descriptor.h>
#include <platform/ipc/Waiting.h>

namespace orvo {

// To be used from the thread that made it only. What comes in is served whenever sources are
// served. While a call waits for its answer it serves what comes in too, so that the callee can
// call back.
class InterfaceBus : public std::enable_shared_from_this<InterfaceBus> {
public:
    // Returns:  null where there is no session bus.
    static std::shared_ptr<InterfaceBus> Open();

    explicit InterfaceBus(std::unique_ptr<sdbus::IConnection> connection);

    // False when the bus has hung up; nothing is exported any more.
    bool IsOpen() const { return m_source != nullptr; }
    ExportTable& Exports() { return m_exports; }

    // How this process is reached.
    InterfaceReference Reference(std::uint64_t key, REFIID id) const;
    bool IsOwn(const InterfaceReference& reference) const { return reference.busName == m_name; }

    // Each asks the process of the reference; how they fail is said at RemoteObject.
    HRESULT Attach(const InterfaceReference& target);
    HRESULT Forget(const InterfaceReference& target);
    HRESULT Call(const InterfaceReference& target, std::uint32_t method, const CallBytes& arguments,
                 CallBytes& results);
    void Detach(const InterfaceReference& target);

    static void SetTimeLimit(int milliseconds);

private:
    struct Request {
        std::string sender;
        std::uint64_t key = 0;
        std::uint32_t method = 0;
        CallBytes bytes;
    };
    using RequestHandler = HRESULT (InterfaceBus::*)(const Request&, CallBytes& results);

    void Listen();
    HRESULT OnCall(const Request& request, CallBytes& results);
    HRESULT OnAttach(const Request& request, CallBytes& results);
    HRESULT OnDetach(const Request& request, CallBytes& results);
    HRESULT OnForget(const Request& request, CallBytes& results);
    void Answer(sdbus::MethodCall& call, RequestHandler handler);
    void OnOwnerChanged(sdbus::Message& message);

    std::shared_ptr<sdbus::IProxy> PeerOf(const InterfaceReference& target);
    HRESULT Ask(const InterfaceReference& target, const char* request, std::uint32_t method,
                const CallBytes& bytes, CallBytes& results);
    void Serve();
    bool Process();
    void Flush();
    void Close();

    // From the last to go to the first: all that follows stands on the connection.
    std::unique_ptr<sdbus::IConnection> m_connection;
    std::string m_name;
    std::unique_ptr<sdbus::IObject> m_object;
    sdbus::Slot m_ownerMatch;
    std::map<std::string, std::shared_ptr<sdbus::IProxy>> m_peers;
    // What has come and waits for its turn: handlers of the bus must not wait themselves.
    std::deque<std::function<void()>> m_work;
    ExportTable m_exports;
    Descriptor m_descriptor;
    std::unique_ptr<WaitSource> m_source;
};

}  // namespace orvo
