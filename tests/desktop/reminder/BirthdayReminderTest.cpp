// Of which birthdays the user is told, and how often.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <desktop/options/DesktopPreferences.h>
#include <desktop/reminder/BirthdayReminder.h>
#include <exchange/files/ImportFile.h>
#include <host/Disclosure.h>
#include <platform/settings/SettingsFixture.h>

#include "ToDoStore.h"

namespace orvo::desktop {
namespace {

class BirthdayReminderTest : public SettingsFixture {
protected:
    BirthdayReminderTest() {
        SetBirthdayAdvance(3);
        Import("Lee", "BDAY:1985-11-26\n");
        Import("Fox", "BDAY:1985-11-29\nANNIVERSARY:2001-11-25\n");
        Import("Sam", "BDAY:--11-25\nCLASS:PRIVATE\n");
        SetPrivacy(store.options, Privacy::Hide);
    }

    void Import(const std::string& name, const std::string& lines) {
        ImportBytes("BEGIN:VCARD\nVERSION:4.0\nN:" + name + "\n" + lines + "END:VCARD\n", addresses,
                    store.toDos);
        days.Clear();
    }

    // What a program says that was just started.
    std::string Told() {
        std::string told;
        SystemClock clock;
        BirthdayReminder reminder(days, store.options, "/orvo.db", clock,
                                  [&](const Note& note) { told += note.body.toStdString(); });
        reminder.Look();
        reminder.Look();
        return told;
    }

    ToDoStore store;
    CAddressTable addresses{store.engine};
    DayIndex days{addresses, [](CAddressRecord& record) {
                      return std::string(record.Utf8(AddressField::Name));
                  }};
};

TEST_F(BirthdayReminderTest, EachIsToldOnceAYearAlsoOverStarts) {
    EXPECT_EQ(Told(), "Lee (turns 41, tomorrow)");
    EXPECT_EQ(Told(), "");
    store.SetNow("2026-11-26T10:00:00");
    EXPECT_EQ(Told(), "Fox (turns 41, in 3 days)");
    store.SetNow("2027-11-26T10:00:00");
    EXPECT_EQ(Told(), "Lee (turns 42, today)\nFox (turns 42, in 3 days)");
}

TEST_F(BirthdayReminderTest, APrivateOneIsToldWhenItMayBe) {
    SetBirthdayAdvance(0);
    EXPECT_EQ(Told(), "");
    SetPrivacy(store.options, Privacy::Mask);
    EXPECT_EQ(Told(), "");
    SetPrivacy(store.options, Privacy::Show);
    EXPECT_EQ(Told(), "Sam (Birthday, today)");
    SetBirthdayAdvance(std::nullopt);
    store.SetNow("2026-11-26T10:00:00");
    EXPECT_EQ(Told(), "");
}

}  // namespace
}  // namespace orvo::desktop
