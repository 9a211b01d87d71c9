// Any bytes are a shell link or a desktop entry, or are refused; what they tell is no longer than
// they are, and holds no zero byte that would cut a path.
// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <platform/desktop/LinkEntry.h>
#include <platform/desktop/ShellLinkFile.h>

namespace {

// A byte that stands for no character takes three in UTF-8.
void CheckPath(std::string_view path, std::size_t size) {
    if (path.size() > 3 * size || path.find('\0') != std::string_view::npos) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckPath(orvo::PathOfLinkEntry(bytes), size);
    try {
        const orvo::ShellLinkFile link = orvo::ReadShellLink(bytes);
        CheckPath(link.relativePath, size);
        CheckPath(link.basePath, 2 * size);  // its two parts may share their bytes
    } catch (const orvo::ShellLinkError&) {
        return 0;
    }
    return 0;
}
