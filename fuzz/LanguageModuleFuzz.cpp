// Any bytes are a sound language module or are refused; a sound one gives well-formed text.
// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <libraries/language/MessageCatalog.h>
#include <platform/text/Charset.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        for (const auto& [number, text] : orvo::ReadMessageCatalog(bytes).texts) {
            if (!orvo::IsValidUtf8(text) || text.size() >= size) std::abort();
        }
    } catch (const orvo::CatalogError&) {
        return 0;
    }
    return 0;
}
