// The module attached for a test, with its texts in a language.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/text/CodePage.h>
#include <support/Environment.h>
#include <support/LocaleInForce.h>

namespace orvo {

class ModuleInForce {
public:
    ModuleInForce() {
        // An attach of an earlier test would keep its language.
        while (OrvoShareReferenceCount() > 0) OrvoShareMain(OwnModule(), DLL_PROCESS_DETACH);
        OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
    }
    ~ModuleInForce() { OrvoShareMain(OwnModule(), DLL_PROCESS_DETACH); }
    ModuleInForce(const ModuleInForce&) = delete;
    ModuleInForce& operator=(const ModuleInForce&) = delete;
};

// With the texts of the locale's language.
struct LocalizedModule {
    explicit LocalizedModule(const char* tag, unsigned codePage = 0) : locale(tag, codePage) {}

    LocaleInForce locale;
    ModuleInForce module;
};

// Without any language module, so that the texts are English whatever the locale.
struct EnglishTexts {
    EnglishTexts() { environment.Set("ORVO_LANGUAGE_DIR", "/nowhere"); }

    Environment environment;
};
struct EnglishModule : EnglishTexts {
    ModuleInForce module;
};

}  // namespace orvo
