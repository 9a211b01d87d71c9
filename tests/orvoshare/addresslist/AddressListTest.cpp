// The address list as a list of records, and what its pop-up and its pointer do beyond that.
// SPDX-License-Identifier: MIT
#include <orvoshare/addresslist/AddressListFixture.h>

namespace orvo {

using ListFixture = AddressListFixture;

}  // namespace orvo

#include <orvoshare/RecordListContract.h>

namespace orvo {
namespace {

using AddressPopup = AddressListFixture;

TEST_F(AddressPopup, IsNotForIconsAndRowsWithoutARecord) {
    Store({"Adams"});
    Fill();
    EXPECT_TRUE(IsHandAt(Cell(0, AddressColumn::Category)));
    view->HideColumn(AddressColumn::Name);  // a click on an icon names the first column
    view->SetViewMode(kLargeIconView);
    system.Click(*view, {30, 20});
    ASSERT_THAT(Selected(), ElementsAre(0));
    EXPECT_FALSE(IsHandAt({30, 20}));
    view->SetViewMode(kReportView);

    view->SendMessage(WM_DESTROY);
    Click(0, AddressColumn::Category);

    EXPECT_THAT(system.Menus(), IsEmpty());
}

TEST_F(AddressPopup, WithoutATableAnyMoreTheChoiceIsDropped) {
    Store({"Adams"});
    Fill();
    system.whileOpen = [this] { view->DV_SetAddressTable(nullptr); };
    Choose(0, kToPersonal);
    EXPECT_EQ(CategoryOf(*RecordAt(0)), kNoCategory);
    EXPECT_THAT(owner.told, IsEmpty());
}

}  // namespace
}  // namespace orvo
