// Libraries that are loaded while the program runs.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <platform/Export.h>

namespace orvo {

// Names a loaded library.
struct LoadedLibrary;
using HMODULE = LoadedLibrary*;

// Loads a library. A name without a slash is looked for in the folder that the environment variable
// ORVO_MODULE_DIR names, else in the folder "orvoshare" of the libraries of the prefix in which
// this library or the program lies, else in that of /usr, and nowhere else.
// Returns:  the library, or null where it is missing, isn't sound or isn't trusted; nothing is
//           shown.
// Owner:    the caller, until FreeLibrary. A library that is loaded twice must be freed twice.
ORVO_API HMODULE LoadLibraryA(const char* name);

// Why LoadLibraryA doesn't load a library that is there: others than the user and root could have
// put it there or changed it.
// Returns:  one line in UTF-8, empty for no such reason.
ORVO_API std::string WhyNotLoaded(const char* name);

// Returns:  the function of that name, or null where the library lacks it.
ORVO_API void* GetProcAddress(HMODULE library, const char* name);

// Returns:  non-zero when the library was freed; its functions must not be called any more.
ORVO_API int FreeLibrary(HMODULE library);

// A library that gets texts may export a function of this name and type. It is called at each load,
// with a function that turns the bytes of a text in the program's code page into UTF-8.
constexpr const char* kAttachFunction = "OrvoLibraryAttach";
using TextToUtf8 = std::string (*)(const char* text);
using AttachFunction = void (*)(TextToUtf8 toUtf8);

}  // namespace orvo
