// Birthdays and anniversaries of a store, read and kept.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>
#include <gmock/gmock.h>

#include <exchange/files/ImportFile.h>
#include <libraries/quire/MemoryEngine.h>
#include <people/DayIndex.h>

namespace orvo {
namespace {

using testing::ElementsAre;
using namespace std::chrono_literals;

class DayIndexTest : public testing::Test {
protected:
    void Import(const char* name, const std::string& lines) {
        ImportBytes(fmt::format("BEGIN:VCARD\nVERSION:3.0\nN:{}\n{}END:VCARD\n", name, lines),
                    addresses, toDos);
    }

    // Each person's name with his days.
    std::vector<std::string> Days() {
        for (int step = 0; !index.IsRead(); ++step) index.Read(0ms);
        std::vector<std::string> days;
        for (const auto& [id, person] : index.People()) {
            std::string text = person.name;
            for (const YearlyDay& day : person.found.days) {
                text += fmt::format(" {} {}", NameOf(day.kind), FormatPersonDate(day.date));
            }
            days.push_back(text);
        }
        return days;
    }

    MemoryEngine engine;
    CAddressTable addresses{engine};
    CToDoTable toDos{engine};
    DayIndex index{addresses, [](CAddressRecord& record) {
                       return std::string(record.Utf8(AddressField::Name));
                   }};
};

TEST_F(DayIndexTest, HoldsEachDayThatComesBackOnce) {
    Import("Lee", "BDAY:--0229\nX-ANNIVERSARY:2001-11-29\nANNIVERSARY:20011129\n");
    Import("Kim", "a.X-ABDATE:2006-12-24\na.X-ABLabel:_$!<Anniversary>!$_\nbday:1985\n");
    Import("Fox", "X-ABDATE:2006-12-24\nNOTE:BDAY:1985-04-12\n");
    EXPECT_THAT(Days(), ElementsAre("Lee Birthday --02-29 Anniversary 2001-11-29",
                                    "Kim Anniversary 2006-12-24"));
}

TEST_F(DayIndexTest, ReadsAgainWhatIsForgottenAlsoWhileItReads) {
    for (int i = 0; i < 50; ++i) Import("Lee", "BDAY:1985-04-12\n");
    index.Read(0ms);
    ASSERT_FALSE(index.IsRead());
    CAddressRecord record(addresses);
    for (const std::int64_t id : {1, 50}) {
        ASSERT_EQ(addresses.Find(id, record), 0);
        addresses.Delete(record);
        index.Forget(id);
    }
    EXPECT_EQ(Days().size(), 48U);
    addresses.Undelete(record);
    index.Forget(50);
    EXPECT_EQ(index.People().size(), 48U);
    EXPECT_EQ(Days().size(), 49U);
    index.Clear();
    EXPECT_EQ(index.People().size(), 49U);
    EXPECT_EQ(Days().size(), 49U);
}

}  // namespace
}  // namespace orvo
