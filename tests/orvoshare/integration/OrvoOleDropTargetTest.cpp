// Which files may be dropped, and what the main window is told.
// SPDX-License-Identifier: MIT

#include <orvoshare/integration/OrvoOleDropTarget.h>
#include <platform/desktop/ShellLinkBytes.h>
#include <platform/io/TempFolder.h>
#include <platform/text/Arrays.h>
#include <platform/window/WindowFixture.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

// The top level of the host, which writes down what it is told.
struct Frame : CWnd {
    std::vector<std::string> files;
    int told = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != 48845) return CWnd::WindowProc(message, wParam, lParam);
        ++told;
        EXPECT_EQ(wParam, 0U);
        const auto& paths = *PointerOf<CStringArray>(lParam);
        for (int i = 0; i < paths.GetSize(); ++i) files.push_back(paths[i].Bytes());
        return 1;
    }
};

struct Target : COrvoOleDropTarget {
    using COrvoOleDropTarget::IsFileAcceptable;
    using COrvoOleDropTarget::ResolveFilename;
    using COrvoOleDropTarget::ResolveIt;
};

struct OrvoOleDropTargetTest : testing::Test {
    OrvoOleDropTargetTest() {
        frame.Create(WS_POPUP, {0, 0, 100, 100}, nullptr, 0);
        main.Create(WS_CHILD, {0, 0, 50, 50}, &frame, 1);
        AfxSetMainWnd(&main);
        target.Register(&main);
    }
    ~OrvoOleDropTargetTest() override { AfxSetMainWnd(nullptr); }

    void AddFiles(DropList files) {
        data.Add(CF_HDROP, std::make_shared<const DropList>(std::move(files)));
    }
    DROPEFFECT Enter() { return target.OnDragEnter(&main, &data, 0, {}); }
    void Drop(DROPEFFECT effect = DROPEFFECT_COPY) {
        EXPECT_EQ(target.OnDrop(&main, &data, effect, {}), 0);
    }

    // A shell link that lies beside its target.
    std::string LinkTo(const char* name, const std::string& to) const {
        return folder.File(name,
                           ShellLinkBytes().WithText(ShellLinkBytes::kRelativePath, to).Bytes());
    }

    SystemInForce system;
    TempFolder folder;
    Frame frame;
    CWnd main;
    Target target;
    COleDataObject data;
};

TEST_F(OrvoOleDropTargetTest, TheExtensionDecides) {
    for (const char* path : {"/x/a.vcf", "/x/a.vcs", "/x/A.VcF", ".vcf"}) {
        EXPECT_EQ(target.IsFileAcceptable(path), 1) << path;
    }
    for (const char* path :
         {"/x/a.txt", "/x/a.vcfs", "/x/a.vc", "/x/avcf", "/x/a.vcf.txt", "/x/not there.lnk", ""}) {
        EXPECT_EQ(target.IsFileAcceptable(path), 0) << path;
    }
}

TEST_F(OrvoOleDropTargetTest, OneAcceptedFileMakesTheDragAccepted) {
    data.Add(CF_TEXT, nullptr);
    EXPECT_EQ(Enter(), DROPEFFECT_NONE);
    AddFiles({"/x/a.txt"});
    EXPECT_EQ(Enter(), DROPEFFECT_NONE);
    AddFiles({"/x/b.txt", "/x/C.VCF", "/x/d.txt"});
    EXPECT_EQ(target.OnDragOver(&main, &data, 0, {}), DROPEFFECT_NONE) << "decided when it came";
    EXPECT_EQ(Enter(), DROPEFFECT_COPY);
    COleDataObject other;
    EXPECT_EQ(target.OnDragOver(&main, &other, 0, {}), DROPEFFECT_COPY);
}

TEST_F(OrvoOleDropTargetTest, ADropTellsTheFrameTheAcceptedFilesInOrder) {
    const std::string longPath = "/" + std::string(300, 'd') + "/a.vcf";
    AddFiles({"/x/b.txt", longPath, "/x/Zoe.VCF"});
    data.Add(CF_TEXT, nullptr);
    AddFiles({"/x/a.vcs"});
    Drop();
    EXPECT_EQ(frame.told, 1);
    EXPECT_THAT(frame.files, ElementsAre(longPath, "/x/Zoe.VCF", "/x/a.vcs"));
}

TEST_F(OrvoOleDropTargetTest, ADropOfNothingTellsNothing) {
    AddFiles({"/x/a.txt"});
    Drop();
    AddFiles({"/x/a.vcf"});
    for (const DROPEFFECT effect : {DROPEFFECT_NONE, DROPEFFECT_MOVE, DROPEFFECT_LINK})
        Drop(effect);
    EXPECT_EQ(frame.told, 0);
    AfxSetMainWnd(nullptr);
    Drop();
    EXPECT_EQ(frame.told, 0) << "no main window";
}

TEST_F(OrvoOleDropTargetTest, AShortcutStandsForItsTarget) {
    const std::string calendar = folder.File("Plan.VCS", "");
    folder.File("notes.txt", "");
    fs::create_symlink("Plan.VCS", folder.Path("linked"));
    fs::create_symlink("gone", folder.Path("own.vcf"));
    AddFiles({LinkTo("a.LNK", "plan.vcs"), LinkTo("b.lnk", "notes.txt"),
              LinkTo("c.lnk", "gone.vcs"),
              folder.File("d.desktop", "[Desktop Entry]\nType=Link\nURL=file://" + calendar),
              folder.Path("linked"), folder.Path("own.vcf"), folder.File("e.lnk", "damaged")});
    EXPECT_EQ(Enter(), DROPEFFECT_COPY);
    Drop();
    EXPECT_THAT(frame.files, ElementsAre(calendar, calendar, calendar, folder.Path("own.vcf")));
    CString path(folder.Path("c.lnk"));
    target.ResolveFilename(nullptr, path);
    EXPECT_EQ(path, "") << "it can't be resolved";
}

TEST_F(OrvoOleDropTargetTest, ATargetMustFitTheBuffer) {
    // The greatest length of which the ending zero byte still fits.
    for (const std::size_t length : {MAX_PATH - 1, MAX_PATH}) {
        const std::string start = folder.Path("");
        const std::string name = std::string(length - start.size() - 4, 'n') + ".vcs";
        folder.File(name.c_str(), "");
        char result[MAX_PATH] = "old";
        const HRESULT resolved = target.ResolveIt(nullptr, LinkTo("a.lnk", name).c_str(), result);
        EXPECT_EQ(resolved < 0, length == MAX_PATH);
        EXPECT_EQ(std::string(result), length == MAX_PATH ? "" : start + name);
    }
}

}  // namespace
}  // namespace orvo
