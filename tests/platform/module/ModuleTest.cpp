// Where the text of a number is looked for, and for how long a module is in reach.
// SPDX-License-Identifier: MIT
#include <thread>

#include <gtest/gtest.h>

#include <platform/module/ExtensionModule.h>
#include <platform/module/FindResource.h>
#include <platform/module/ResourceHandle.h>
#include <platform/module/TextsModule.h>
#include <platform/text/CString.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

// A menu for each text, and nothing else.
struct MenuModule : TextsModule {
    explicit MenuModule(const Texts& texts) : TextsModule(texts, texts) {}

    std::string_view FindResource(ResourceKind kind, unsigned number) const override {
        return kind == ResourceKind::Menu ? TextsModule::FindResource(kind, number) : "";
    }
};

// An extension module in use and in the chain, for one test.
struct Extension {
    explicit Extension(HINSTANCE module, int isSystem = 0) { Init(module, isSystem); }
    ~Extension() { AfxTermExtensionModule(record, 1); }
    void Init(HINSTANCE module, int isSystem = 0) {
        EXPECT_NE(AfxInitExtensionModule(record, module), 0);
        new CDynLinkLibrary(record, isSystem);
    }
    AFX_EXTENSION_MODULE record;
};

struct ModuleTest : testing::Test {
    ~ModuleTest() override { AfxSetResourceHandle(nullptr); }

    // The text of that number; "none" where the result says so and the text is empty.
    static CString Load(unsigned number) {
        CString text("old");
        return text.LoadString(number) != 0 ? text : CString("none") + text;
    }

    LocaleInForce locale{"en-US"};
    MenuModule application{{{1, "application"}}};
    MenuModule early{{{1, "early"}, {2, "early"}, {3, "early"}}};
    MenuModule late{{{2, "late"}}};
    MenuModule system{{{3, "system"}, {4, "system"}}};
};

// The road of texts and of other resources is the same.
TEST_F(ModuleTest, TheResourceHandleComesFirstThenTheLatestOfTheChain) {
    EXPECT_EQ(Load(1), "none");
    EXPECT_EQ(FindResourceText(ResourceKind::Menu, 1), "");
    const Extension earlyInUse(&early);
    const Extension lateInUse(&late);
    AfxSetResourceHandle(&application);

    EXPECT_EQ(Load(1), "application");
    EXPECT_EQ(Load(2), "late");
    EXPECT_EQ(Load(3), "early");
    EXPECT_EQ(Load(4), "none");
    EXPECT_EQ(FindResourceText(ResourceKind::Menu, 1), "application");
    EXPECT_EQ(FindResourceText(ResourceKind::Menu, 2), "late");
    EXPECT_EQ(FindResourceModule(ResourceKind::Menu, 3), &early);
    EXPECT_EQ(FindResourceModule(ResourceKind::Menu, 4), nullptr);
    EXPECT_EQ(FindResourceText(ResourceKind::Dialog, 1), "");

    const Extension systemInUse(&system, 1);
    EXPECT_EQ(Load(3), "early") << "a system library comes after all others";
    EXPECT_EQ(Load(4), "system");
}

TEST_F(ModuleTest, AModuleIsSearchedUntilItsLastInitIsUndone) {
    Extension inUse(&early);
    inUse.Init(&early);

    AfxTermExtensionModule(inUse.record, 0);
    EXPECT_EQ(Load(1), "early");
    EXPECT_EQ(inUse.record.resource, &early);
    AfxTermExtensionModule(inUse.record, 0);
    EXPECT_EQ(Load(1), "none");
    EXPECT_EQ(inUse.record.resource, nullptr);
    AfxTermExtensionModule(inUse.record, 0);
    EXPECT_EQ(inUse.record.initialized, 0) << "one more is harmless";
}

TEST_F(ModuleTest, EveryThreadHasItsOwnResourceHandle) {
    AfxSetResourceHandle(&application);
    std::thread([] { EXPECT_EQ(Load(1), "none"); }).join();
    EXPECT_EQ(Load(1), "application");
}

TEST_F(ModuleTest, TextComesInTheCodePageOfTheSystem) {
    const MenuModule japanese({{1, "山"}});
    AfxSetResourceHandle(&japanese);
    EXPECT_EQ(Load(1), "\xE5\xB1\xB1");
    const LocaleInForce page932("ja-JP", 932);
    EXPECT_EQ(Load(1), "\x8E\x52");
}

}  // namespace
}  // namespace orvo
