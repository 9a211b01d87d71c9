// A plug-in of a later version, which doesn't look with whom it has to do.
// SPDX-License-Identifier: MIT
#include <contracts/Plugin.h>

namespace {

void Nothing(void*) {}

}  // namespace

extern "C" __attribute__((visibility("default"))) uint32_t OrvoPluginStart(
    const OrvoPluginHost* host) {
    host->addEntry(host->host, ORVO_MENU_ADDRESSES, ORVO_ITEM_SEND_MAIL, "Too new", &Nothing,
                   nullptr);
    return ORVO_PLUGIN_VERSION + 1;
}
