// The module's own pictures, menus and dialogs, as their files have them.
// SPDX-License-Identifier: MIT
#include <orvoshare/resources/ResourceTable.h>

namespace orvo {
namespace {

constexpr ResourceFile kFiles[] = {
#include <ResourceTable.inc>
};

}  // namespace

std::span<const ResourceFile> ResourceFiles() {
    return kFiles;
}

}  // namespace orvo
