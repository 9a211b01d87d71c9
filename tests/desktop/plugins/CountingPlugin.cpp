// A plug-in that counts what is selected.
// SPDX-License-Identifier: MIT
#include <array>
#include <cstdio>

#include <contracts/Plugin.h>

namespace {

const OrvoPluginHost* host;

void Count(void*) {
    std::array<int64_t, 2> ids{};
    const uint32_t count = host->selectedIds(host->host, ids.data(), ids.size());
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%u selected, the first is %lld", count,
                  static_cast<long long>(ids[0]));
    host->tell(host->host, text.data());
    std::fprintf(stderr, "%s\n", text.data());
}

void Refused(const char* what, int answer) {
    if (answer != 0) std::fprintf(stderr, "%s was added\n", what);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) uint32_t OrvoPluginStart(
    const OrvoPluginHost* given) {
    if (given->version != ORVO_PLUGIN_VERSION) return ORVO_PLUGIN_VERSION;
    host = given;
    const auto add = [](uint32_t menu, uint32_t before, const char* text, void (*chosen)(void*)) {
        return host->addEntry(host->host, menu, before, text, chosen, nullptr);
    };
    Refused("an entry of no menu", add(0x900, ORVO_ITEM_NONE, "Nowhere", &Count));
    Refused("an entry of the menus without a number", add(0, ORVO_ITEM_NONE, "Nowhere", &Count));
    Refused("an entry without a text", add(ORVO_MENU_FILE, ORVO_ITEM_NONE, nullptr, &Count));
    Refused("an entry that does nothing", add(ORVO_MENU_FILE, ORVO_ITEM_NONE, "Idle", nullptr));
    return add(ORVO_MENU_ADDRESSES, ORVO_ITEM_SEND_MAIL, "Count selected", &Count) != 0 &&
                   add(ORVO_MENU_FILE, ORVO_ITEM_SEND_MAIL, "Count", &Count) != 0
               ? ORVO_PLUGIN_VERSION
               : 0;
}
