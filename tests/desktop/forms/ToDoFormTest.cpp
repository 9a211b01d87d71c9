// The form of a to-do.
// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QSpinBox>
#include <QTimeEdit>

#include <desktop/forms/FormFixture.h>
#include <desktop/forms/ToDoForm.h>
#include <exchange/calendar/SeriesCompletion.h>
#include <exchange/calendar/SeriesEdits.h>
#include <platform/time/CTime.h>
#include <platform/time/ZonedTest.h>

namespace orvo::desktop {
namespace {

// It is 2026-05-03 12:00 in Tokyo.
class ToDoFormTest : public ZonedTest, protected FormHands<CToDoRecord, EditToDo> {
protected:
    ToDoFormTest() {
        SetSystemTimeZone("Asia/Tokyo");
        CTime::SetClock(At(2026, 5, 3, 12));
    }
    ~ToDoFormTest() override { CTime::SetClock(-1); }

    static long At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
        return CTime(year, month, day, hour, minute, second).GetTime();
    }
};

QDateEdit& DayOf(QDialog& form, const char* name) {
    return *Field<QWidget>(form, name).findChild<QDateEdit*>();
}
void Check(QDialog& form, const char* name) {
    auto* box = Field<QWidget>(form, name).findChild<QCheckBox*>();
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
}

TEST_F(ToDoFormTest, ANewToDoHoldsWhatWasTyped) {
    Save([](QDialog& form) {
        Type(form, "description", "買う\nmilk");
        Type(form, "note", "عربي");
        QTest::keyClick(&Field<QWidget>(form, "priority"), Qt::Key_End);
        Check(form, "due");
        Press(form, "Private");
    });

    EXPECT_EQ(record.DescriptionUtf8(), "買う\nmilk");
    EXPECT_EQ(NoteOf(record), "عربي");
    EXPECT_EQ(PriorityOf(record), 5);
    EXPECT_EQ(DueDateOf(*Stored()), At(2026, 5, 3));
    EXPECT_TRUE(record.IsPrivate());
    EXPECT_FALSE(record.IsCompleted());
}

TEST_F(ToDoFormTest, DueDatesComeBackAsTheyWere) {
    struct Row {
        const char* why;
        long before;
        Hands::Step step;
        long want;
    };
    const auto day = [](int year, int month, int number) {
        return [=](QDialog& form) { DayOf(form, "due").setDate(QDate(year, month, number)); };
    };
    const Row rows[] = {
        {"no date stays none", maxDate(), [](QDialog&) {}, maxDate()},
        {"unchecked there is none", At(2026, 1, 2), [](QDialog& form) { Check(form, "due"); },
         maxDate()},
        {"the day alone is changed", At(2026, 1, 2, 17, 30, 45), day(2027, 3, 4),
         At(2027, 3, 4, 17, 30, 45)},
        {"the time alone is changed", At(2026, 1, 2, 17, 30),
         [](QDialog& form) {
             Field<QWidget>(form, "due").findChild<QTimeEdit*>("time")->setTime(QTime(9, 5));
         },
         At(2026, 1, 2, 9, 5)},
        {"no day is before the first", At(1971, 1, 1), day(1969, 1, 1), 0},
        {"nor behind the last", At(2026, 1, 2), day(2100, 1, 1), At(2038, 1, 19)},
        {"the last moment is a date", maxDate() - 1, [](QDialog&) {}, maxDate() - 1},
    };
    for (const Row& row : rows) {
        CToDoRecord fresh(own.toDos);
        fresh.SetDueDate(row.before);
        own.toDos.Add(fresh);
        own.toDos.Find(fresh.GetId(), record);

        Save(row.step);

        EXPECT_EQ(DueDateOf(*Stored()), row.want) << row.why;
    }
}

TEST_F(ToDoFormTest, CompletingTakesTodayAndUndoingDropsIt) {
    own.toDos.Add(record);

    Save(Pressing("Completed"));
    EXPECT_TRUE(Stored()->IsCompleted());
    EXPECT_EQ(CompletionDateOf(*Stored()), At(2026, 5, 3, 12));

    Save([](QDialog& form) { DayOf(form, "completedOn").setDate(QDate(2026, 5, 1)); });
    EXPECT_EQ(CompletionDateOf(*Stored()), At(2026, 5, 1, 12));

    Save(Pressing("Completed"));
    EXPECT_FALSE(Stored()->IsCompleted());
    EXPECT_EQ(CompletionDateOf(*Stored()), maxDate());
}

std::string RuleOf(const CToDoRecord& record) {
    return std::string(record.Recurrence());
}

TEST_F(ToDoFormTest, HowAToDoRepeatsIsChosenAndCountedFromItsDueDate) {
    const auto choose = [](int kind) {
        return
            [kind](QDialog& form) { Field<QComboBox>(form, "repeatKind").setCurrentIndex(kind); };
    };
    Save([&](QDialog& form) {
        choose(2)(form);
        EXPECT_TRUE(Field<QWidget>(form, "due").findChild<QCheckBox*>()->isChecked());
        DayOf(form, "due").setDate(QDate(2026, 5, 8));
        Field<QSpinBox>(form, "repeatEach").setValue(2);
        Field<QComboBox>(form, "repeatEnd").setCurrentIndex(2);
        EXPECT_EQ(Field<QLabel>(form, "repeatWords").text(), "every second Friday, 10 times");
    });
    EXPECT_EQ(RuleOf(*Stored()), "FREQ=WEEKLY;INTERVAL=2;BYDAY=FR;COUNT=10");

    Save([&](QDialog& form) {
        choose(3)(form);
        Field<QComboBox>(form, "repeatPlace").setCurrentIndex(1);
        Field<QComboBox>(form, "repeatEnd").setCurrentIndex(1);
        Field<QDateEdit>(form, "repeatUntil").setDate(QDate(2027, 12, 31));
        Check(form, "start");
    });
    EXPECT_EQ(RuleOf(*Stored()), "FREQ=MONTHLY;INTERVAL=2;BYDAY=2FR;UNTIL=20271231");
    long start = 0;
    Stored()->GetStartDate(start);
    EXPECT_EQ(start, At(2026, 5, 3));

    CompleteSeriesByDates(own.toDos);
    Save(Pressing("Completed"));
    EXPECT_FALSE(Stored()->IsCompleted());
    EXPECT_EQ(DueDateOf(*Stored()), At(2026, 7, 10));
    EXPECT_EQ(CompletionDateOf(*Stored()), maxDate());

    Save(choose(0));
    EXPECT_EQ(RuleOf(*Stored()), "");
}

TEST_F(ToDoFormTest, ARuleOfItsOwnStaysUntilAnotherIsChosen) {
    record.SetDueDate(At(2026, 5, 8));
    ToDoText text;
    ASSERT_EQ(ReadToDoText(record, text), 0);
    ASSERT_TRUE(SetRule(text, "FREQ=DAILY;BYHOUR=9"));
    ASSERT_EQ(WriteToDoText(record, text), 0);
    own.toDos.Add(record);

    Save([](QDialog& form) {
        EXPECT_EQ(Field<QComboBox>(form, "repeatKind").currentIndex(), 5);
        Type(form, "description", "a");
    });
    EXPECT_EQ(RuleOf(*Stored()), "FREQ=DAILY;BYHOUR=9");

    Save([](QDialog& form) { Field<QComboBox>(form, "repeatKind").setCurrentIndex(4); });
    EXPECT_EQ(RuleOf(*Stored()), "FREQ=YEARLY");
}

}  // namespace
}  // namespace orvo::desktop
