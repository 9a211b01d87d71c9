// The examples of docs/api.md do what they say.
// SPDX-License-Identifier: MIT
#include <examples/api_examples.h>
#include <memory>
#include <utility>

#include <platform/com/SessionFixture.h>
#include <platform/window/WindowFixture.h>

namespace {

struct ApiExamples : testing::Test {
    ApiExamples() {
        ::setenv("XDG_CONFIG_HOME", ScratchRuntime::Get().Folder().c_str(), 1);
        window.Create(0, {0, 0, 600, 430}, nullptr, 0);
        EXPECT_TRUE(AddPerson(addresses, "Zyx", "Ann"));
        EXPECT_TRUE(AddPerson(addresses, "Abel", "Ben"));
    }

    SessionBus bus;
    SystemInForce system;
    MemoryEngine store;
    CAddressTable addresses{store};
    CWnd window;
};

TEST_F(ApiExamples, TypingSelectsInTheList) {
    CDetailViewAddrList list;
    CLookupEdit box;
    ASSERT_TRUE(ShowList(list, window, addresses));
    ASSERT_TRUE(ShowLookup(box, window, list));
    box.SendMessage(WM_CHAR, 'z');
    EXPECT_EQ(list.DV_GetFirstSelectedItem(), 1);
}

TEST_F(ApiExamples, CardsAndToDosShowTheirRecords) {
    CDetailViewAddrCard cards;
    EXPECT_TRUE(ShowCards(cards, window, addresses));
    EXPECT_EQ(cards.DV_GetItemCount(), 2);
    CToDoTable toDos(store);
    CToDoRecord toDo(toDos);
    toDos.Add(toDo);
    CTodoListbox list;
    EXPECT_TRUE(ShowToDos(list, window, toDos));
    EXPECT_EQ(list.GetItemCount(), 1);
}

TEST_F(ApiExamples, OptionsAreKeptAndAskedFor) {
    OptionsWindow().ShowPrivate(true);
    OptionsWindow main;
    COrvoDesktopOptions* options = nullptr;
    EXPECT_EQ(main.SendMessage(WM_GET_DESKTOP_OPTIONS, 0, LParamOf(&options)), 1);
    EXPECT_EQ(options->IsShowingPrivate(), 1);
}

TEST_F(ApiExamples, TheDataOfAUserAreWorkedOnByOne) {
    bool isSecondRefused = false;
    EXPECT_TRUE(WorkOnDataOf("Ann", [&] { isSecondRefused = !WorkOnDataOf("Ann", [] {}); }));
    EXPECT_TRUE(isSecondRefused);
}

TEST_F(ApiExamples, ADroppedCardIsTold) {
    DropWindow main;
    COleDataObject data;
    data.Add(CF_HDROP, std::make_shared<const DropList>(DropList{"/x/a.txt", "/x/a.vcf"}));
    COleDropTarget* target = COleDropTarget::FromWindow(main.GetSafeHwnd());
    EXPECT_EQ(target->DoDragEnter(data, 0, DROPEFFECT_COPY, {}), DROPEFFECT_COPY);
    target->DoDrop(data, 0, DROPEFFECT_COPY, {});
    EXPECT_EQ(main.lastFile, "/x/a.vcf");
}

TEST_F(ApiExamples, ADialogThatIsClosedGivesNoPath) {
    bool onlySelected = false;
    for (int i = 0; i < 2; ++i) system.UseFileDialog({});
    EXPECT_EQ(AskForImport(window) + AskForExport(window, onlySelected), "");
}

struct Bell final : ComObject<IBell> {
    Bell() : ComObject(IID_IBell) {}
    HRESULT Ring() override { return S_FALSE; }
};
struct BellWindow : CWnd {
    ComPointer<IBell> bell;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_COPYDATA) return CWnd::WindowProc(message, wParam, lParam);
        return TakeBell(PointerOf<COPYDATASTRUCT>(lParam), bell);
    }
};

TEST_F(ApiExamples, AnInterfaceComesToAWindow) {
    RegisterBell();
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    BellWindow receiver;
    receiver.Create(0, {}, nullptr, 0);
    const ComPointer<IBell> bell(new Bell);
    EXPECT_TRUE(SendBell(bell.Get(), window, receiver.GetSafeHwnd()));
    EXPECT_EQ(receiver.bell->Ring(), S_FALSE);
    CoUninitialize();
}

}  // namespace
