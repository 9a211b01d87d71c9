// The whole texts of info tips, and when there is none.
// SPDX-License-Identifier: MIT
#include <orvoshare/addresslist/AddressListFixture.h>

namespace orvo {
namespace {

using enum AddressField;

constexpr AddressField kPhone3 = PhoneField(3);

// Phones 1 to 3 are labelled "M", "" and "W:", custom fields 1 and 4 "B" and "C".
const std::tuple<const char*, AddressTexts, const char*> kTips[] = {
    {"names and company", {{First, "A"}, {Name, "L"}, {Company, "A\tc"}}, "A L\nA    c"},
    {"set off by lines", {{Name, "L"}, {kPhone3, "1"}, {Custom1, "x"}}, "L\n\nW:\t1\n\nB:\tx"},
    {"nothing to tell", {{Title, "Dr"}, {Address, "1 Elm St"}, {NameYomi, "x"}}, ""},
    {"a company alone has no empty lines behind it", {{Company, "Acme"}}, "Acme"},
    {"a long name stands below the first", {{First, "A"}, {Name, "L\nof H"}}, "A\nL\nof H"},
    {"tabs of names become blanks", {{First, "A\tn"}, {Name, "L\te"}}, "A    n L    e"},
    {"no label: no number", {{Name, "L"}, {PhoneField(2), "1"}, {Custom1, "x"}}, "L\n\nB:\tx"},
    {"phones by slots", {{Phone1, "1\t2\r3"}, {kPhone3, "4"}}, "\nM\t1    2\n\t3\nW:\t4"},
    {"tabs of fields stay",
     {{Custom1, "a\tb\nc\nd"}, {Custom4, "e"}},
     "\nB:\ta\tb\n\tc\n\td\nC:\te"},
    {"kanji and kana", {{Name, "表山"}, {Company, "ソ会社\nムあ"}}, "表山\nソ会社\nムあ"},
};

class AddressTip : public AddressListFixture, public testing::WithParamInterface<LocaleCase> {
protected:
    AddressTip() : AddressListFixture({"en-US", GetParam().codePage}) {
        table.SetPhoneLabel(0, "M");
        table.SetPhoneLabel(1, "");
        table.SetPhoneLabel(2, "W:");
        table.SetCustomLabel(1, "B");
        table.SetCustomLabel(4, "C");
        view->SetViewMode(kLargeIconView);
    }

    // What stands in a buffer of `size` bytes after the request; behind it a byte that stays.
    std::string Ask(int size, const char* before = "") {
        std::string buffer(before);
        buffer.resize(static_cast<std::size_t>(size) + 1, '\0');
        buffer.back() = '#';
        NMLVGETINFOTIP request;
        request.hdr = {view->GetSafeHwnd(), view->GetDlgCtrlID(), LVN_GETINFOTIP};
        request.pszText = buffer.data();
        request.cchTextMax = size;
        request.iItem = 0;
        owner.SendMessage(WM_NOTIFY, view->GetDlgCtrlID(), LParamOf(&request));
        EXPECT_EQ(buffer.back(), '#') << size;
        return buffer.substr(0, buffer.find('\0'));
    }
};

TEST_P(AddressTip, HoldsTheWholeRecordInLines) {
    for (const int mode : {kLargeIconView, kSmallIconView}) {
        view->SetViewMode(mode);
        for (const auto& [why, fields, want] : kTips) {
            ShowOne(fields);
            EXPECT_EQ(ToUtf8(view->GetInfoTip(0)), want) << why;
        }
    }
}

TEST_P(AddressTip, IsCutToWholeCharactersAndNeverEndsInALineFeed) {
    for (const auto& [why, fields, tip] : kTips) {
        ShowOne(fields);
        const std::string whole(view->GetInfoTip(0).View());
        for (int size = 1; size <= static_cast<int>(whole.size()) + 2; ++size) {
            const std::size_t room = static_cast<std::size_t>(size) - 1;
            std::string want = whole.substr(0, CutLength(CodePage::System(), whole, room, false));
            want.erase(want.find_last_not_of('\n') + 1);
            EXPECT_EQ(Ask(size), want) << why << ", " << size;
        }
    }
}

TEST_P(AddressTip, ReplacesWhatStoodInTheBufferWhereItHasRoom) {
    ShowOne({{Title, "Dr"}});
    EXPECT_EQ(Ask(20, "before"), "");
    ShowOne({{Name, "Lee"}});
    EXPECT_EQ(Ask(0), "#");
}

TEST_P(AddressTip, LeavesTheRequestAloneWhereThereIsNoTip) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"report mode", [&] { view->SetViewMode(kReportView); }},
        {"a masked row", [&] { view->DV_SetMaskPrivate(1); }},
        {"no such row", [&] { view->DV_DeleteAll(); }},
        {"a row without a record", [&] { view->SendMessage(WM_DESTROY); }},
    };
    for (const auto& [why, arrange] : cases) {
        view->SetViewMode(kSmallIconView);
        view->DV_SetMaskPrivate(0);
        ShowOne({{Name, "Lee"}}).SetPrivate(1);
        ASSERT_EQ(Ask(20, "before"), "Lee");

        arrange();

        EXPECT_EQ(Ask(20, "before"), "before") << why;
    }
}

INSTANTIATE_TEST_SUITE_P(BothCodePages, AddressTip, testing::ValuesIn(kBothCodePages));

}  // namespace
}  // namespace orvo
