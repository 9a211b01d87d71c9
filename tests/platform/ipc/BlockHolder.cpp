// A program that holds a block: BlockHolder create|open NAME SIZE [TEXT]. It tells whether it got
// the block and what text it found, writes TEXT there, and ends with its input.
// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <platform/ipc/FileMapping.h>

int main(int count, char** arguments) {
    using namespace orvo;
    if (count < 4) return 2;
    const auto size = static_cast<std::uint32_t>(std::strtoul(arguments[3], nullptr, 10));
    const bool creates = std::string_view(arguments[1]) == "create";
    const HANDLE mapping = creates ? CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr,
                                                        PAGE_READWRITE, 0, size, arguments[2])
                                   : OpenFileMappingA(FILE_MAP_ALL_ACCESS, 0, arguments[2]);
    const long error = GetLastError();
    auto* text =
        static_cast<char*>(MapViewOfFileEx(mapping, FILE_MAP_ALL_ACCESS, 0, 0, size, nullptr));
    std::printf("%s %ld %s\n", mapping != nullptr ? "held" : "failed", error,
                text != nullptr && *text != '\0' ? text : "-");
    std::fflush(stdout);
    if (text != nullptr && count > 4 && *arguments[4] != '\0') {
        std::strcpy(text, arguments[4]);
        std::puts("written");
        std::fflush(stdout);
    }
    while (std::getchar() != EOF) {
    }
    return 0;
}
