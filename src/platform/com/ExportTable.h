// The objects that other processes may call, and who holds them.
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <random>
#include <string>

#include <platform/com/RemoteInterface.h>

namespace orvo {

// An object stays here while its packet can be used or somebody holds it.
class ExportTable {
public:
    // Returns:  the random key of a packet that can be used once, or again and again until Forget.
    std::uint64_t Add(ComPointer<IUnknown> object, REFIID id, bool isTable);

    // Uses the packet for a process, which then holds the object once more.
    // Fails:    with CO_E_OBJNOTCONNECTED where it is used up or unknown, E_INVALIDARG where that
    //           isn't its interface.
    HRESULT Attach(std::uint64_t key, REFIID id, const std::string& holder);

    // The same for this process itself, which gets the object.
    HRESULT Take(std::uint64_t key, REFIID id, ComPointer<IUnknown>& object);

    void Detach(std::uint64_t key, const std::string& holder);

    // The packet can't be used any more.
    HRESULT Forget(std::uint64_t key);

    // The process has ended; it holds nothing any more.
    void DropHolder(const std::string& holder);

    // Nothing can be reached any more.
    void Clear();

    // Fails:    with CO_E_OBJNOTCONNECTED where the caller doesn't hold the object.
    HRESULT Call(std::uint64_t key, const std::string& caller, std::uint32_t method,
                 const CallBytes& arguments, CallBytes& results) const;

    std::size_t Count() const { return m_exports.size(); }

private:
    struct Export {
        ComPointer<IUnknown> object;
        IID id;
        bool isTable = false;
        bool isPacketGood = true;
        std::map<std::string, ULONG> holders;
    };
    using Exports = std::map<std::uint64_t, Export>;

    HRESULT Use(std::uint64_t key, REFIID id, Exports::iterator& found);
    void RemoveIdle(Exports::iterator place);

    Exports m_exports;
    std::random_device m_random;
};

}  // namespace orvo
