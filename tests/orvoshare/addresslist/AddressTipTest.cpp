// The whole texts of info tips, and when there is none.
// SPDX-License-Identifier: MIT
#include <orvoshare/addresslist/AddressListFixture.h>

namespace orvo {
namespace {

using enum AddressField;

struct TipRow {
    const char* why;
    AddressTexts fields;
    const char* want;
};

// Phones 1 to 3 are labelled "Mobile", "" and "Work:".
const std::vector<TipRow> kTips{
    {"all blocks, set off by empty lines",
     {{First, "Ann"},
      {Name, "Lee"},
      {Company, "Acme"},
      {PhoneField(3), "555-1234"},
      {Custom1, "May 1"}},
     "Ann Lee\nAcme\n\nWork:\t555-1234\n\nBirthday:\tMay 1"},
    {"nothing to tell", {{Title, "Dr"}, {Address, "1 Elm St"}, {NameYomi, "x"}}, ""},
    {"a company alone has no empty lines behind it", {{Company, "Acme"}}, "Acme"},
    {"a name of several lines stands below the first name",
     {{First, "Ann"}, {Name, "Lee\nof Hull"}},
     "Ann\nLee\nof Hull"},
    {"a first name of several lines stands above the name",
     {{First, "Ann\r\nMarie"}, {Name, "Lee"}},
     "Ann\nMarie\nLee"},
    {"tabs of names and companies become blanks",
     {{First, "A\tnn"}, {Name, "L\tee"}, {Company, "Ac\tme\nLtd"}},
     "A    nn L    ee\nAc    me\nLtd"},
    {"a number without a label is left out, and sets nothing off",
     {{Name, "Lee"}, {PhoneField(2), "1"}, {Custom1, "May 1"}},
     "Lee\n\nBirthday:\tMay 1"},
    {"phones in the order of their slots; further lines start with a tab",
     {{Name, "Lee"}, {PhoneField(1), "1\t2\r3"}, {PhoneField(3), "4"}},
     "Lee\n\nMobile\t1    2\n\t3\nWork:\t4"},
    {"custom fields keep their tabs, and only the first is set off",
     {{Name, "Lee"}, {PhoneField(3), "4"}, {Custom1, "a\tb\nc\nd"}, {Custom4, "e"}},
     "Lee\n\nWork:\t4\n\nBirthday:\ta\tb\n\tc\n\td\nClub:\te"},
    {"without name and company the separator is the first line",
     {{PhoneField(3), "4"}},
     "\nWork:\t4"},
    {"characters of two and three bytes",
     {{Name, "表山"}, {Company, "ソ会社\nムあ"}, {Custom1, "ー\n能"}},
     "表山\nソ会社\nムあ\n\nBirthday:\tー\n\t能"},
};

class AddressTip : public AddressListFixture, public testing::WithParamInterface<LocaleCase> {
protected:
    AddressTip() : AddressListFixture({"en-US", GetParam().codePage}) {
        table.SetPhoneLabel(1, "");
        table.SetPhoneLabel(2, "Work:");
        table.SetCustomLabel(1, "Birthday");
        table.SetCustomLabel(4, "Club");
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
        for (const TipRow& row : kTips) {
            ShowOne(row.fields);
            EXPECT_EQ(ToUtf8(view->GetInfoTip(0)), row.want) << row.why;
        }
    }
}

TEST_P(AddressTip, IsCutToWholeCharactersAndNeverEndsInALineFeed) {
    for (const TipRow& row : kTips) {
        ShowOne(row.fields);
        const std::string whole(view->GetInfoTip(0).View());
        for (int size = 1; size <= static_cast<int>(whole.size()) + 2; ++size) {
            const std::size_t room = static_cast<std::size_t>(size) - 1;
            std::string want = whole.substr(0, CutLength(CodePage::System(), whole, room, false));
            want.erase(want.find_last_not_of('\n') + 1);
            EXPECT_EQ(Ask(size), want) << row.why << ", " << size;
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
    struct Case {
        const char* why;
        std::function<void()> arrange;
    };
    const Case cases[] = {
        {"report mode", [&] { view->SetViewMode(kReportView); }},
        {"a masked row", [&] { view->DV_SetMaskPrivate(1); }},
        {"no such row", [&] { view->DV_DeleteAll(); }},
        {"a row without a record", [&] { view->SendMessage(WM_DESTROY); }},
    };
    for (const Case& each : cases) {
        view->SetViewMode(kSmallIconView);
        view->DV_SetMaskPrivate(0);
        ShowOne({{Name, "Lee"}}).SetPrivate(1);
        ASSERT_EQ(Ask(20, "before"), "Lee");

        each.arrange();

        EXPECT_EQ(Ask(20, "before"), "before") << each.why;
    }
}

INSTANTIATE_TEST_SUITE_P(BothCodePages, AddressTip, testing::ValuesIn(kBothCodePages));

}  // namespace
}  // namespace orvo
