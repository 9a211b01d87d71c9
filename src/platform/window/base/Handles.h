// Handles: names of objects that are never given a second time.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <unordered_map>

namespace orvo {

template <class Handle, class Object>
class HandleTable {
public:
    Handle Add(Object* object) {
        const Handle handle = reinterpret_cast<Handle>(m_next);
        m_next += kStep;
        m_objects.emplace(handle, object);
        return handle;
    }
    void Remove(Handle handle) { m_objects.erase(handle); }

    // Null where there is none, or no longer one.
    Object* Find(Handle handle) const {
        const auto found = m_objects.find(handle);
        return found == m_objects.end() ? nullptr : found->second;
    }

private:
    static constexpr std::uintptr_t kStep = 16;

    std::uintptr_t m_next = kStep;
    std::unordered_map<Handle, Object*> m_objects;
};

}  // namespace orvo
