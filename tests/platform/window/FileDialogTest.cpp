// File dialogs without a screen: what they are set up with, tell and give.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <platform/io/TempFolder.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/base/PlaySound.h>
#include <platform/window/dialogs/CFileDialog.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

struct FileDialogTest : testing::Test {
    SystemInForce system;
    TempFolder folder;
};

struct RecordingDialog : CFileDialog {
    using CFileDialog::CFileDialog;

    std::vector<CString> calls;
    BOOL refusal = 0;

    BOOL OnInitDialog() override { return Note("init"); }
    void OnInitDone() override { Note("done"); }
    void OnFileNameChange() override { Note(CString("change ") + GetFileTitle()); }
    BOOL OnFileNameOK() override {
        Note("ok");
        return std::exchange(refusal, 0);
    }

    BOOL Note(const CString& call) {
        calls.push_back(call);
        return 1;
    }
};

TEST_F(FileDialogTest, AFilterIsTakenApartByCharacters) {
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce locale(page.tag, page.codePage);
        // In 932 the second byte of this one is that of '|'.
        const CString po = page.codePage == 932 ? "\x83\x7C" : "\xE3\x83\x9D";
        const std::tuple<const char*, CString, std::vector<FileFilter>> rows[] = {
            {"pairs", "Cards|*.vcf|All (*.*)|*.*||", {{"Cards", "*.vcf"}, {"All (*.*)", "*.*"}}},
            {"a character with the byte of the mark", po + "|*.wav||", {{po, "*.wav"}}},
            {"the end isn't marked", "Cards|*.vcf;*.vcs", {{"Cards", "*.vcf;*.vcs"}}},
            {"no patterns", "Cards", {{"Cards", "*.*"}}},
            {"nothing", "", {}},
        };
        for (const auto& [why, filter, want] : rows) {
            std::vector<FileFilter> filters{{"untouched", ""}};
            system.UseFileDialog(
                [&](MemoryFileDialogPeer& shown) { filters = shown.Setup().filters; });
            CFileDialog dialog(1, nullptr, nullptr, 0, filter);
            EXPECT_EQ(dialog.DoModal(), IDCANCEL) << why;
            EXPECT_EQ(filters, want) << why << ' ' << page.codePage;
        }
    }
}

TEST_F(FileDialogTest, TheHandlersAreCalledInTurn) {
    RecordingDialog dialog(0, "vcf", "old.vcf");
    dialog.refusal = 1;
    const std::string path = folder.Path("new.vcf");
    system.UseFileDialog([&](MemoryFileDialogPeer& shown) {
        EXPECT_EQ(dialog.GetFileName(), "old.vcf");
        shown.TypeFileName(CString(folder.Path("new")));
        shown.PressOk();  // refused
        EXPECT_TRUE(IsWindow(dialog.GetSafeHwnd()));
        shown.PressOk();
    });

    EXPECT_EQ(dialog.DoModal(), IDOK);

    EXPECT_THAT(dialog.calls, ElementsAre("init", "done", "change new", "ok", "ok"));
    EXPECT_EQ(dialog.GetPathName(), CString(path));
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
}

TEST_F(FileDialogTest, ACancelledDialogGivesNoPath) {
    RecordingDialog dialog(1);
    system.UseFileDialog([&](MemoryFileDialogPeer& shown) {
        shown.PressOk();  // no name
        shown.TypeFileName("a.vcf");
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetPathName(), "");
    EXPECT_THAT(dialog.calls, ElementsAre("init", "done", "change a"));
}

TEST_F(FileDialogTest, TheTitleIsTheNameWithoutFolderAndExtension) {
    constexpr const char* kRows[][3] = {{"/a.b/ring.tone.wav", "ring.tone.wav", "ring.tone"},
                                        {"/a.b/ring", "ring", "ring"},
                                        {"/a/.wav", ".wav", ".wav"},
                                        {"", "", ""}};
    for (const auto& [path, name, title] : kRows) {
        CFileDialog dialog(0, nullptr, path, 0);
        system.UseFileDialog([&, name = name, title = title](MemoryFileDialogPeer&) {
            EXPECT_EQ(dialog.GetFileName(), name);
            EXPECT_EQ(dialog.GetFileTitle(), title);
        });
        dialog.DoModal();
    }
}

TEST_F(FileDialogTest, ADialogThatCantBeShownSaysSo) {
    CFileDialog withoutTemplate(1, nullptr, nullptr, OFN_ENABLETEMPLATE);
    withoutTemplate.m_ofn.lpTemplateName = 4711;
    EXPECT_EQ(withoutTemplate.DoModal(), -1);

    CFileDialog twice(1);
    system.UseFileDialog([&](MemoryFileDialogPeer&) { EXPECT_EQ(twice.DoModal(), -1); });
    EXPECT_EQ(twice.DoModal(), IDCANCEL);
}

TEST_F(FileDialogTest, ASoundIsPlayedOnlyByFileAndWithoutWaiting) {
    EXPECT_EQ(PlaySoundA("a.wav", nullptr, SND_FILENAME), 0);
    EXPECT_EQ(PlaySoundA("a.wav", &system, SND_FILENAME | SND_ASYNC), 0);
    EXPECT_THAT(system.Sounds(), IsEmpty());

    EXPECT_NE(PlaySoundA("a.wav", nullptr, SND_FILENAME | SND_ASYNC), 0);
    EXPECT_THAT(system.Sounds(), ElementsAre("a.wav"));
    EXPECT_TRUE(system.IsPlaying());
    EXPECT_NE(PlaySoundA(nullptr, nullptr, SND_PURGE), 0);
    EXPECT_FALSE(system.IsPlaying());
}

}  // namespace
}  // namespace orvo
