// What a plug-in of orvo-desktop exports, and what it is given. It is C, so that any compiler makes
// plug-ins.
// SPDX-License-Identifier: MIT
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define ORVO_PLUGIN_VERSION 1U

// Menus and items by which an entry's place is named, whatever else stands in them.
#define ORVO_MENU_FILE 0x100U
#define ORVO_MENU_EDIT 0x200U
#define ORVO_MENU_VIEW 0x300U
#define ORVO_MENU_ADDRESSES 0x400U
#define ORVO_ITEM_SEND_MAIL 0x401U
#define ORVO_MENU_TO_DO 0x500U
#define ORVO_ITEM_NONE 0xFFFFFFFFU

// Lives until the window ends. To be used from the thread of the windows only. Texts are in UTF-8
// and are read before a function returns.
struct OrvoPluginHost {
    uint32_t version;
    void* host;  // the first argument of each function

    // Adds an entry to the menu before the item, or at the end where that isn't there; `chosen` is
    // called with `data` when the user chooses it. An & in the text stands before its mnemonic.
    // Returns:  0 where there is no such menu, or no text or function.
    int (*addEntry)(void* host, uint32_t menu, uint32_t before, const char* text,
                    void (*chosen)(void* data), void* data);

    // Writes the ids of the selected entries of the view that is shown, as many as there is room
    // for; those that are masked aren't among them.
    // Returns:  how many there are.
    uint32_t (*selectedIds)(void* host, int64_t* ids, uint32_t room);

    // Shows one line to the user, who goes on.
    void (*tell)(void* host, const char* text);
};

// What a plug-in exports under the name "OrvoPluginStart". It is called once, before the window
// shows. Where the host's version isn't its own it does nothing.
// Returns:  the version that it is made for, 0 where it can't work.
typedef uint32_t (*OrvoPluginStartFunction)(const struct OrvoPluginHost* host);

#ifdef __cplusplus
}
#endif
