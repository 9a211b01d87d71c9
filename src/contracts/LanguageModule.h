// Language modules: where they lie, and how one is loaded and freed. Fulfilled by
// libraries/language.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/module/Module.h>
#include <platform/text/CString.h>

namespace orvo {

// Sets `directory` to the one in which the language modules of the system's language lie. Its
// parent is the folder that the environment variable ORVO_LANGUAGE_DIR names, else the folder
// "share/orvoshare/lang" of the prefix in which the library or the program lies, else that of /usr.
// Its name is the longest start of the locale's tag for which there is a folder, such as "zh-Hant"
// for "zh-Hant-TW", else the language alone. The bytes are those of the file system.
// Returns:  non-zero where there is such a directory; else it is named as if there were one.
ORVO_API int GetOrvoLangDllDirectory(CString& directory);

// Loads the language module at `path`, whose last part may stand behind a backslash. The language
// code is what the module names; 0 where it names none.
// Returns:  the handle to take resources from. What the language module doesn't hold is looked for
//           in `own`.
// Owner:    the library, until CmnFreeLanguageModule.
// Fails:    with `own` and a language code of 0 where the file is missing or isn't a sound language
//           module; the latter is reported on standard error.
ORVO_API HINSTANCE CmnLoadLanguageModule(const char* path, HINSTANCE own, int* languageCode);

// Frees the language module. No one may take resources from it any more.
// Returns:  non-zero when it did.
// Fails:    with 0 where `language` is `own` or isn't a loaded language module.
ORVO_API int CmnFreeLanguageModule(HINSTANCE language, HINSTANCE own);

}  // namespace orvo
