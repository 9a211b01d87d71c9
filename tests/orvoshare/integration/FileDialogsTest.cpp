// The dialogs for export, import and sound files, without a screen.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <orvoshare/ModuleInForce.h>
#include <orvoshare/integration/ExportFileDialog.h>
#include <orvoshare/integration/ImportFileDialog.h>
#include <orvoshare/integration/SoundFileDialog.h>
#include <platform/io/TempFolder.h>
#include <platform/window/WindowFixture.h>

namespace orvo {
namespace {

constexpr UINT kAll = 9001;
constexpr UINT kSelected = 9002;
constexpr UINT kPlay = 9170;
constexpr UINT kStop = 9171;

struct FileDialogsTest : testing::Test {
    LocalizedModule english{"en-US", kUtf8CodePage};
    SystemInForce system;
    TempFolder folder;
};

TEST_F(FileDialogsTest, TheRangeIsThatOfTheButtonThatIsCheckedInTheEnd) {
    const std::tuple<const char*, unsigned long, unsigned long, UINT, unsigned long> rows[] = {
        {"all by default", 3, 1, 0, 1},
        {"the selected ones by default", 3, 2, 0, 2},
        {"any other default is the selected ones", 3, 0, 0, 2},
        {"a click chooses", 3, 1, kSelected, 2},
        {"and chooses back", 3, 2, kAll, 1},
        {"a default that isn't on offer holds", 2, 1, 0, 1},
        {"until another one is clicked", 2, 1, kSelected, 2},
        {"what isn't on offer can't be clicked", 1, 1, kSelected, 1},
        {"bits beyond the two offer nothing", 8, 1, kSelected, 1},
        {"with the bit of 4 among others", 7, 1, kSelected, 2},
        {"no choice", 4, 2, kAll, 0},
        {"the plain dialog", 0, 1, kAll, 2},
    };
    for (const auto& [why, available, standard, clicked, want] : rows) {
        CExportFileDialog dialog(nullptr, "vcf", "Cards|*.vcf||", nullptr, available, standard);
        system.UseFileDialog([&, clicked = clicked](MemoryFileDialogPeer& shown) {
            shown.TypeFileName(CString(folder.Path("new")));
            if (clicked != 0) shown.ClickControl(clicked);
            shown.PressOk();
        });
        EXPECT_EQ(dialog.DoModal(), IDOK) << why;
        EXPECT_EQ(dialog.GetRange(), want) << why;
        EXPECT_EQ(dialog.GetPathName(), CString(folder.Path("new.vcf"))) << why;
    }
}

TEST_F(FileDialogsTest, ExportSaysSoWhereverItShouldAndOffersWhatItMay) {
    // Then: whether there is a row of buttons, and which of the two is enabled.
    const std::tuple<unsigned long, const char*, bool, bool, bool> rows[] = {
        {0, "", false, false, false},          {1, "Export As", true, true, false},
        {2, "Export As", true, false, true},   {3, "Export As", true, true, true},
        {4, "Export As", false, false, false}, {8, "Export As", true, false, false},
    };
    for (const auto& row : rows) {
        const unsigned long available = std::get<0>(row);
        CExportFileDialog dialog(nullptr, nullptr, nullptr, nullptr, available, 1);
        system.UseFileDialog([&row](const MemoryFileDialogPeer& shown) {
            const auto& [offered, title, hasRow, all, selected] = row;
            const FileDialogSetup& setup = shown.Setup();
            EXPECT_EQ(setup.title, title) << offered;
            EXPECT_EQ(setup.added.has_value(), hasRow) << offered;
            EXPECT_EQ(shown.IsControlEnabled(kAll), all) << offered;
            EXPECT_EQ(shown.IsControlEnabled(kSelected), selected) << offered;
            EXPECT_EQ(shown.IsControlChecked(kAll), hasRow) << offered;
            EXPECT_EQ(shown.ControlText(IDOK), "&Export");
            EXPECT_EQ(shown.ControlText(1091), "Export &in:");
            EXPECT_EQ(shown.ControlText(1089), "Export &type:");
            EXPECT_TRUE(setup.asksBeforeOverwriting && setup.folderMustExist);
            EXPECT_FALSE(setup.opens || setup.fileMustExist);
        });
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_EQ(dialog.GetRange(), 0U) << "cancelled";
    }
}

TEST_F(FileDialogsTest, TheTemplateIsThatOfTheModuleThatIsGiven) {
    class Host : public Module {
    public:
        bool FindString(unsigned, std::string&) const override { return false; }
        std::string_view FindResource(ResourceKind kind, unsigned number) const override {
            const bool isTemplate = kind == ResourceKind::Dialog && number == 1006;
            return isTemplate ? "size 9 9\nfont 8 Sans\npush-button 77 0 0 5 5 1\n" : "";
        }
    };
    const Host host;
    CExportFileDialog dialog(&host, nullptr, nullptr, nullptr, 3, 1);
    system.UseFileDialog([](const MemoryFileDialogPeer& shown) {
        EXPECT_TRUE(shown.IsControlEnabled(77));
        EXPECT_FALSE(shown.IsControlEnabled(kAll));
        EXPECT_EQ(shown.ControlText(IDOK), "&Export");
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(FileDialogsTest, ImportHasATitleOfItsHostAndTakesOnlyFilesThatAreThere) {
    const CString there(folder.File("there.vcf", "x"));
    CImportFileDialog dialog("Cards (*.vcf)|*.vcf||", nullptr, CString("Import ") + "cards");
    system.AnswerMessageBox(IDOK);
    system.UseFileDialog([&](MemoryFileDialogPeer& shown) {
        EXPECT_EQ(shown.Setup().title, "Import cards");
        EXPECT_EQ(shown.ControlText(IDOK), "Im&port");
        EXPECT_EQ(shown.ControlText(1091), "") << "the system's own";
        EXPECT_TRUE(shown.Setup().opens);
        shown.TypeFileName(CString(folder.Path("absent.vcf")));
        shown.PressOk();
        EXPECT_THAT(system.MessageBoxes(), testing::SizeIs(1));
        shown.TypeFileName(there);
        shown.PressOk();
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), there);
}

struct SoundFileDialogTest : FileDialogsTest {
    void Show(MemoryFileDialogPeer::User user, const char* initialFolder = "") {
        CSoundFileDialog dialog(initialFolder, 1, "wav", nullptr, OFN_FILEMUSTEXIST,
                                "Sounds|*.wav||", nullptr);
        system.UseFileDialog(std::move(user));
        dialog.DoModal();
    }
};

TEST_F(SoundFileDialogTest, AButtonIsOnWhereItHasSomethingToDo) {
    Show([](MemoryFileDialogPeer& shown) {
        const auto expectEnabled = [&](bool play, bool stop, const char* why) {
            EXPECT_EQ(shown.IsControlEnabled(kPlay), play) << why;
            EXPECT_EQ(shown.IsControlEnabled(kStop), stop) << why;
        };
        expectEnabled(true, true, "at the start");
        shown.TypeFileName("");
        expectEnabled(false, false, "no file");
        shown.TypeFileName("bell.wav");
        expectEnabled(true, false, "stop as before");
        shown.ClickControl(kPlay);
        expectEnabled(true, true, "played");
        shown.ClickControl(kStop);
        expectEnabled(true, true, "stopped");
    });
}

TEST_F(SoundFileDialogTest, ASoundReplacesTheOneBeforeAndOutlastsTheDialog) {
    const auto play = [this](MemoryFileDialogPeer& shown) {
        EXPECT_EQ(shown.Setup().folder, "/sounds");
        shown.ClickControl(kStop);
        EXPECT_THAT(system.Sounds(), IsEmpty());
        shown.TypeFileName("ring");
        shown.ClickControl(kPlay);
        shown.ClickControl(kStop);
        EXPECT_FALSE(system.IsPlaying());
        shown.TypeFileName("/other/bell.wav");
        shown.ClickControl(kPlay);
    };
    Show(play, "/sounds");
    EXPECT_THAT(system.Sounds(), ElementsAre("/sounds/ring.wav", "/other/bell.wav"));
    EXPECT_TRUE(system.IsPlaying());
}

TEST_F(SoundFileDialogTest, TheFacesHaveTheColoursOfButtonsAndTheFolderIsTheSystems) {
    constexpr COLORREF kFace = RGB(1, 2, 3);
    constexpr COLORREF kText = RGB(9, 8, 7);
    system.SetColour(COLOR_BTNFACE, kFace);
    system.SetColour(COLOR_BTNTEXT, kText);
    Show([&](const MemoryFileDialogPeer& shown) {
        EXPECT_EQ(shown.Setup().folder, "");
        system.SetColour(COLOR_BTNFACE, RGB(200, 200, 200));
        const CBitmap play = shown.ControlBitmap(kPlay);
        EXPECT_EQ(play.Size(), (CSize{8, 9}));
        EXPECT_EQ(play.GetPixel({7, 0}), kFace);
        EXPECT_EQ(play.GetPixel({1, 4}), kText);
        EXPECT_EQ(shown.ControlBitmap(kStop), CBitmap({8, 8}, kText));
    });
}

}  // namespace
}  // namespace orvo
