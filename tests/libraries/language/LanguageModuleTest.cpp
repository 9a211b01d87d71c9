// Finding, loading and freeing language modules, and the scopes in which they are in reach.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <contracts/LanguageModule.h>
#include <contracts/ResourceScope.h>
#include <libraries/language/MessageFile.h>
#include <platform/io/TempFolder.h>
#include <platform/module/ResourceHandle.h>
#include <support/Environment.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

// Knows two numbers; 1 is known to it alone.
class OwnTexts : public Module {
public:
    bool FindString(unsigned number, std::string& utf8) const override {
        if (number != 1 && number != 9189) return false;
        utf8 = "own";
        return true;
    }
    std::string_view FindResource(ResourceKind, unsigned number) const override {
        return number == 1 ? "own menu" : "";
    }
};

struct LanguageModuleTest : testing::Test {
    LanguageModuleTest() { environment.Set("ORVO_LANGUAGE_DIR", folder.Path()); }

    static std::string Text(HINSTANCE module, unsigned number) {
        std::string text;
        return module->FindString(number, text) ? text : "none";
    }

    TempFolder folder;
    Environment environment;
    OwnTexts own;
    int code = 77;
};

TEST_F(LanguageModuleTest, TheLanguageModuleComesFirstAndTheOwnTextsBehindIt) {
    folder.File("ORVOSHARELANG.DLL", MessageBytes(kGerman));
    const std::string path = folder.Path().string() + "\\ORVOSHARELANG.DLL";
    const HINSTANCE language = CmnLoadLanguageModule(path.c_str(), &own, &code);

    ASSERT_NE(language, &own);
    EXPECT_EQ(code, 0x40);
    EXPECT_EQ(Text(language, 9189), "-Unbenannt-");
    EXPECT_EQ(Text(language, 1), "own");
    EXPECT_EQ(Text(language, 2), "none");
    EXPECT_EQ(language->FindResource(ResourceKind::Menu, 1), "own menu");

    EXPECT_NE(CmnFreeLanguageModule(language, &own), 0);
    EXPECT_EQ(CmnFreeLanguageModule(language, &own), 0) << "it is gone";
    EXPECT_EQ(CmnFreeLanguageModule(&own, &own), 0);
}

TEST_F(LanguageModuleTest, WithoutASoundFileTheOwnHandleStandsIn) {
    const std::string whole = MessageBytes(kGerman);
    struct Row {
        const char* why;
        std::string path;
        bool told;
    };
    const Row kRows[] = {
        {"no such file", folder.Path("none"), false},
        {"no path", "", false},
        {"a folder", folder.Path(), true},
        {"no language module", folder.File("text", "Hello"), true},
        {"without its last byte", folder.File("short", whole.substr(0, whole.size() - 1)), true},
    };
    for (const Row& row : kRows) {
        code = 77;
        testing::internal::CaptureStderr();
        EXPECT_EQ(CmnLoadLanguageModule(row.path.c_str(), &own, &code), &own) << row.why;
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(code, 0) << row.why;
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), row.told ? 1 : 0) << told;
        EXPECT_THAT(told, testing::StartsWith(row.told ? row.path : "")) << row.why;
    }
}

TEST_F(LanguageModuleTest, TheDirectoryIsTheLongestStartOfTheTagThatIsThere) {
    for (const char* name : {"de", "zh-Hant", "fr"})
        std::filesystem::create_directory(folder.Path(name));
    struct Row {
        const char *tag, *want;
        bool there;
    };
    constexpr Row kRows[] = {
        {"de-DE", "de", true},  {"de-DE-u-co-phonebk", "de", true},
        {"fr", "fr", true},     {"zh-Hant-TW", "zh-Hant", true},
        {"zh-TW", "zh", false}, {"es-ES", "es", false},
    };
    for (const Row& row : kRows) {
        const LocaleInForce locale(row.tag);
        CString directory("old");
        EXPECT_EQ(GetOrvoLangDllDirectory(directory) != 0, row.there) << row.tag;
        EXPECT_EQ(directory, CString(folder.Path(row.want))) << row.tag;
    }
}

TEST(ResourceScope, ScopesNestAndPutTheFormerHandleBack) {
    const OwnTexts outer;
    const OwnTexts inner;
    AFX_EXTENSION_MODULE record;
    record.resource = &outer;
    {
        const CDllResourceHandler scope(record);
        record.resource = &inner;
        EXPECT_EQ(AfxGetResourceHandle(), &outer) << "the scope has a copy of the record";
        {
            const CDllResourceHandler nested(record);
            EXPECT_EQ(AfxGetResourceHandle(), &inner);
        }
        EXPECT_EQ(AfxGetResourceHandle(), &outer);
    }
    EXPECT_EQ(AfxGetResourceHandle(), nullptr);
}

}  // namespace
}  // namespace orvo
