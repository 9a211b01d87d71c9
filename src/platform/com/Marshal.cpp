// Passing interfaces to other processes of the same machine and user.
// SPDX-License-Identifier: MIT
#include <memory>
#include <thread>
#include <utility>

#include <platform/com/InterfaceBus.h>
#include <platform/com/Marshal.h>

namespace orvo {
namespace {

struct Apartment {
    std::thread::id thread;
    int entered = 0;
    std::shared_ptr<InterfaceBus> bus;

    static Apartment& Get() {
        // What the bus needs at its end must outlive it.
        static const int waiting = WaitDescriptor();
        static Apartment apartment;
        static_cast<void>(waiting);
        return apartment;
    }

    HRESULT Check() const {
        if (entered == 0) return CO_E_NOTINITIALIZED;
        return thread == std::this_thread::get_id() ? S_OK : RPC_E_WRONG_THREAD;
    }

    HRESULT FindBus(std::shared_ptr<InterfaceBus>& found) {
        const HRESULT result = Check();
        if (result != S_OK) return result;
        if (!bus || !bus->IsOpen()) bus = InterfaceBus::Open();
        found = bus;
        return bus ? S_OK : RPC_E_SERVER_UNAVAILABLE;
    }
};

class BusObject final : public RemoteObject {
public:
    BusObject(const std::shared_ptr<InterfaceBus>& bus, InterfaceReference reference)
        : m_bus(bus), m_reference(std::move(reference)) {}
    BusObject(const BusObject&) = delete;
    BusObject& operator=(const BusObject&) = delete;
    ~BusObject() override {
        if (const auto bus = m_bus.lock()) bus->Detach(m_reference);
    }

    REFIID InterfaceId() const override { return m_reference.interfaceId; }
    HRESULT Call(std::uint32_t method, const CallBytes& arguments, CallBytes& results) override {
        const auto bus = m_bus.lock();
        if (!bus) return RPC_E_DISCONNECTED;
        return bus->Call(m_reference, method, arguments, results);
    }

private:
    std::weak_ptr<InterfaceBus> m_bus;
    InterfaceReference m_reference;
};

// The reference of a packet, and the bus on which it is reached.
HRESULT ReadReference(IStream& stream, InterfaceReference& reference,
                      std::shared_ptr<InterfaceBus>& bus) {
    const HRESULT result = ReadPacket(stream, reference);
    return result == S_OK ? Apartment::Get().FindBus(bus) : result;
}

HRESULT FindObject(const std::shared_ptr<InterfaceBus>& bus, const InterfaceReference& reference,
                   ComPointer<IUnknown>& object) {
    if (bus->IsOwn(reference)) {
        return bus->Exports().Take(reference.key, reference.interfaceId, object);
    }
    const RemoteInterface* interface = FindInterface(reference.interfaceId);
    if (!interface) return REGDB_E_IIDNOTREG;
    const HRESULT result = bus->Attach(reference);
    if (result != S_OK) return result;
    object = ComPointer(interface->makeProxy(std::make_unique<BusObject>(bus, reference)));
    return S_OK;
}

}  // namespace

HRESULT CoInitialize(void* reserved) {
    if (reserved != nullptr) return E_INVALIDARG;
    Apartment& apartment = Apartment::Get();
    if (apartment.entered != 0 && apartment.Check() != S_OK) return RPC_E_WRONG_THREAD;
    apartment.thread = std::this_thread::get_id();
    return apartment.entered++ == 0 ? S_OK : S_FALSE;
}

void CoUninitialize() {
    Apartment& apartment = Apartment::Get();
    if (apartment.Check() != S_OK || --apartment.entered != 0) return;
    // The objects go when nothing of the apartment is there any more for them to call.
    const auto bus = std::move(apartment.bus);
}

HRESULT CoGetMarshalSizeMax(ULONG* size, REFIID id, IUnknown* object, ULONG context, void*,
                            ULONG flags) {
    const HRESULT result = Apartment::Get().Check();
    if (result != S_OK) return result;
    if (!size || !object || context != MSHCTX_LOCAL || flags > MSHLFLAGS_TABLESTRONG) {
        return E_INVALIDARG;
    }
    if (!FindInterface(id)) return REGDB_E_IIDNOTREG;
    *size = kPacketLimit;
    return S_OK;
}

HRESULT CoMarshalInterface(IStream* stream, REFIID id, IUnknown* object, ULONG context,
                           void* contextData, ULONG flags) {
    ULONG size = 0;
    HRESULT result = CoGetMarshalSizeMax(&size, id, object, context, contextData, flags);
    if (result != S_OK) return result;
    if (!stream) return E_INVALIDARG;
    void* found = nullptr;
    result = object->QueryInterface(id, &found);
    if (result != S_OK) return result;
    ComPointer<IUnknown> held(static_cast<IUnknown*>(found));
    std::shared_ptr<InterfaceBus> bus;
    result = Apartment::Get().FindBus(bus);
    if (result != S_OK) return result;
    const bool isTable = flags == MSHLFLAGS_TABLESTRONG;
    const std::uint64_t key = bus->Exports().Add(std::move(held), id, isTable);
    result = WritePacket(*stream, bus->Reference(key, id));
    if (result != S_OK) bus->Exports().Forget(key);
    return result;
}

HRESULT CoUnmarshalInterface(IStream* stream, REFIID id, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!stream) return E_INVALIDARG;
    InterfaceReference reference;
    std::shared_ptr<InterfaceBus> bus;
    HRESULT result = ReadReference(*stream, reference, bus);
    if (result != S_OK) return result;
    ComPointer<IUnknown> found;
    result = FindObject(bus, reference, found);
    return result == S_OK ? found->QueryInterface(id, object) : result;
}

HRESULT CoReleaseMarshalData(IStream* stream) {
    if (!stream) return E_INVALIDARG;
    InterfaceReference reference;
    std::shared_ptr<InterfaceBus> bus;
    const HRESULT result = ReadReference(*stream, reference, bus);
    if (result != S_OK) return result;
    return bus->IsOwn(reference) ? bus->Exports().Forget(reference.key) : bus->Forget(reference);
}

void SetInterfaceTimeLimit(int milliseconds) {
    InterfaceBus::SetTimeLimit(milliseconds);
}

std::size_t ExportedInterfaceCount() {
    const auto& bus = Apartment::Get().bus;
    return bus ? bus->Exports().Count() : 0;
}

}  // namespace orvo
