// The objects that other processes may call, and who holds them.
// SPDX-License-Identifier: MIT
#include <utility>
#include <vector>

#include <platform/com/ExportTable.h>

namespace orvo {

std::uint64_t ExportTable::Add(ComPointer<IUnknown> object, REFIID id, bool isTable) {
    std::uint64_t key = 0;
    do {
        key = std::uint64_t{m_random()} << 32U | m_random();
    } while (m_exports.contains(key));
    m_exports.emplace(key, Export{std::move(object), id, isTable, true, {}});
    return key;
}

HRESULT ExportTable::Use(std::uint64_t key, REFIID id, Exports::iterator& found) {
    found = m_exports.find(key);
    if (found == m_exports.end() || !found->second.isPacketGood) return CO_E_OBJNOTCONNECTED;
    if (found->second.id != id) return E_INVALIDARG;
    found->second.isPacketGood = found->second.isTable;
    return S_OK;
}

HRESULT ExportTable::Attach(std::uint64_t key, REFIID id, const std::string& holder) {
    Exports::iterator found;
    const HRESULT result = Use(key, id, found);
    if (result == S_OK) ++found->second.holders[holder];
    return result;
}

HRESULT ExportTable::Take(std::uint64_t key, REFIID id, ComPointer<IUnknown>& object) {
    Exports::iterator found;
    const HRESULT result = Use(key, id, found);
    if (result != S_OK) return result;
    object = found->second.object;
    RemoveIdle(found);
    return S_OK;
}

void ExportTable::Detach(std::uint64_t key, const std::string& holder) {
    const auto found = m_exports.find(key);
    if (found == m_exports.end()) return;
    const auto held = found->second.holders.find(holder);
    if (held == found->second.holders.end()) return;
    if (--held->second == 0) found->second.holders.erase(held);
    RemoveIdle(found);
}

HRESULT ExportTable::Forget(std::uint64_t key) {
    const auto found = m_exports.find(key);
    if (found == m_exports.end() || !found->second.isPacketGood) return CO_E_OBJNOTCONNECTED;
    found->second.isPacketGood = false;
    RemoveIdle(found);
    return S_OK;
}

void ExportTable::DropHolder(const std::string& holder) {
    // Outlives the loop: an object that goes may call back here.
    std::vector<Export> idle;
    for (auto place = m_exports.begin(); place != m_exports.end();) {
        Export& entry = place->second;
        const bool isIdle =
            entry.holders.erase(holder) != 0 && entry.holders.empty() && !entry.isPacketGood;
        if (isIdle) idle.push_back(std::move(entry));
        place = isIdle ? m_exports.erase(place) : std::next(place);
    }
}

void ExportTable::Clear() {
    // The objects go when the table is empty, as they may call back here.
    const Exports gone = std::exchange(m_exports, {});
}

HRESULT ExportTable::Call(std::uint64_t key, const std::string& caller, std::uint32_t method,
                          const CallBytes& arguments, CallBytes& results) const {
    const auto found = m_exports.find(key);
    if (found == m_exports.end() || !found->second.holders.contains(caller)) {
        return CO_E_OBJNOTCONNECTED;
    }
    const RemoteInterface* interface = FindInterface(found->second.id);
    if (!interface) return REGDB_E_IIDNOTREG;
    const ComPointer<IUnknown> object = found->second.object;
    try {
        return interface->stub(object.Get(), method, arguments, results);
    } catch (...) {
        // An exception must not end a process because another one called.
        return RPC_E_SERVERFAULT;
    }
}

void ExportTable::RemoveIdle(Exports::iterator place) {
    if (place->second.isPacketGood || !place->second.holders.empty()) return;
    // The object goes last, when it is no longer in the table.
    const auto node = m_exports.extract(place);
}

}  // namespace orvo
