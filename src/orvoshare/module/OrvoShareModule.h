// The module's start-up in a host, and what its resources are taken from.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/module/ExtensionModule.h>
#include <platform/text/CString.h>

namespace orvo {

// The module's entry, for the reasons DLL_PROCESS_ATTACH and DLL_PROCESS_DETACH; any other reason
// does nothing. The first attach keeps `instance`, which is OwnModule, and loads the language
// module of the system's locale; the detach of the last attach that is in force frees it. A host
// attaches after it has set the locale. To take on another locale it detaches and attaches again.
// That, as any first attach and last detach, happens while no other thread uses the module's texts.
// Returns:  non-zero; a detach without an attach changes nothing.
// Fails:    with 0 where the framework refuses the module; the attach isn't in force then.
ORVO_API int OrvoShareMain(HINSTANCE instance, unsigned reason);

// A copy of the extension module record, for a CDllResourceHandler. Where no attach is in force it
// attaches first, so that a host that holds the library needs no call.
ORVO_API AFX_EXTENSION_MODULE OrvoShareRecord();

// The text of that number, in the language of the module; empty where there is none. Attaches first
// as OrvoShareRecord does.
ORVO_API CString OrvoShareText(unsigned number);

// The number of attaches that are in force.
ORVO_API int OrvoShareReferenceCount();

// The code that the language module names, such as 0x40 for German and 0x20 for French; 0 where
// none is loaded. Attaches first as OrvoShareRecord does.
ORVO_API int OrvoShareLanguageCode();

// Puts the module at the head of the chain that the framework searches. For a library of a host
// that has put other modules there.
ORVO_API void InitOrvoShareDLL();

}  // namespace orvo
