// Which interfaces can be called in another process.
// SPDX-License-Identifier: MIT
#include <map>

#include <platform/com/RemoteInterface.h>

namespace orvo {
namespace {

std::map<IID, RemoteInterface>& Interfaces() {
    static std::map<IID, RemoteInterface> interfaces;
    return interfaces;
}

}  // namespace

void RegisterInterface(REFIID id, ProxyMaker makeProxy, Stub stub) {
    Interfaces()[id] = {makeProxy, stub};
}

const RemoteInterface* FindInterface(REFIID id) {
    const auto found = Interfaces().find(id);
    return found == Interfaces().end() ? nullptr : &found->second;
}

}  // namespace orvo
