// Attaching and detaching the module, and the texts that are in reach meanwhile.
// SPDX-License-Identifier: MIT

#include <contracts/LanguageModule.h>
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/text/CString.h>
#include <support/Environment.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

struct OrvoShareModuleTest : testing::Test {
    ~OrvoShareModuleTest() override {
        while (OrvoShareReferenceCount() > 0) Detach();
    }

    static int Attach() { return OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH); }
    static int Detach() { return OrvoShareMain(OwnModule(), DLL_PROCESS_DETACH); }

    // Only what the chain of modules gives.
    static CString TextOutside(unsigned number) {
        CString text;
        text.LoadString(number);
        return text;
    }
};

TEST_F(OrvoShareModuleTest, TextsComeInTheLanguageOfTheLocaleAtTheFirstAttach) {
    for (const auto& [tag, code, privateText] : {std::tuple{"de-DE", 0x40, "(Privat)"},
                                                 {"fr-FR", 0x20, "(Privé)"},
                                                 {"ja-JP", 0x11, "(\x94\xF1\x8C\xF6\x8A\x4A)"},
                                                 {"es-ES", 0, "(Private)"}}) {
        const LocaleInForce locale(tag);
        EXPECT_NE(Attach(), 0);
        EXPECT_EQ(OrvoShareLanguageCode(), code) << tag;
        EXPECT_EQ(OrvoShareText(kStringPrivate), privateText) << tag;
        EXPECT_EQ(OrvoShareText(4711), "") << "no such number";
        Detach();
    }
}

TEST_F(OrvoShareModuleTest, EveryLanguageModuleHoldsEveryText) {
    for (const char* tag : {"en", "de", "fr", "ja"}) {
        const LocaleInForce locale(tag);
        CString directory;
        ASSERT_NE(GetOrvoLangDllDirectory(directory), 0) << tag;
        int code = 0;
        const CString path = directory + "\\ORVOSHARELANG.DLL";
        const HINSTANCE language = CmnLoadLanguageModule(path, nullptr, &code);
        ASSERT_NE(language, nullptr) << tag;
        for (const NumberedString& english : EnglishStrings()) {
            std::string text;
            EXPECT_TRUE(language->FindString(english.number, text)) << tag << english.number;
            if (tag == std::string_view("en")) {
                EXPECT_EQ(text, english.text);
            }
        }
        CmnFreeLanguageModule(language, nullptr);
    }
}

TEST_F(OrvoShareModuleTest, TheLanguageStaysUntilTheLastDetach) {
    const LocaleInForce german("de-DE");
    Attach();
    const LocaleInForce french("fr-FR");
    Attach();
    EXPECT_EQ(OrvoShareReferenceCount(), 2);
    Detach();
    EXPECT_EQ(OrvoShareLanguageCode(), 0x40);
    EXPECT_EQ(TextOutside(kStringPrivate), "(Privat)") << "it is still searched";
    const HINSTANCE language = OrvoShareRecord().resource;

    Detach();
    EXPECT_EQ(OrvoShareReferenceCount(), 0);
    EXPECT_EQ(CmnFreeLanguageModule(language, OwnModule()), 0) << "it is freed already";
    EXPECT_EQ(TextOutside(kStringPrivate), "") << "it is no longer searched";
    EXPECT_EQ(OrvoShareLanguageCode(), 0x20) << "the next use attaches anew";
}

TEST_F(OrvoShareModuleTest, OnlyAnAttachWithAModuleCountsAndWithoutALanguageTheOwnTextsStandIn) {
    Environment environment;
    environment.Set("ORVO_LANGUAGE_DIR", "/nowhere");
    const LocaleInForce locale("de-DE");
    EXPECT_NE(Detach(), 0);
    EXPECT_NE(OrvoShareMain(OwnModule(), 2), 0);
    EXPECT_EQ(OrvoShareMain(nullptr, DLL_PROCESS_ATTACH), 0);
    EXPECT_EQ(OrvoShareReferenceCount(), 0);
    EXPECT_EQ(OrvoShareRecord().module, OwnModule());
    EXPECT_EQ(OrvoShareLanguageCode(), 0);
    for (const NumberedString& english : EnglishStrings()) {
        EXPECT_EQ(OrvoShareText(english.number), english.text);
    }
    EXPECT_EQ(OrvoShareReferenceCount(), 1) << "the first use attaches, once";
}

TEST_F(OrvoShareModuleTest, AHostsLibraryPutsTheModuleBeforeTheOthers) {
    class Other : public Module {
        bool FindString(unsigned, std::string& utf8) const override {
            utf8 = "other";
            return true;
        }
    };
    const LocaleInForce locale("en-US");
    Attach();
    const Other other;
    AFX_EXTENSION_MODULE record;
    AfxInitExtensionModule(record, &other);
    new CDynLinkLibrary(record, 0);
    EXPECT_EQ(TextOutside(kStringPrivate), "other");

    InitOrvoShareDLL();
    EXPECT_EQ(TextOutside(kStringPrivate), "(Private)");
    Detach();
    EXPECT_EQ(TextOutside(kStringPrivate), "other") << "nothing of it is left in the chain";
    AfxTermExtensionModule(record, 0);
}

}  // namespace
}  // namespace orvo
