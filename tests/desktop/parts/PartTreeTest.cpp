// The tree of the parts of a to-do.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <desktop/parts/PartTree.h>
#include <exchange/calendar/ToDoParent.h>
#include <libraries/quire/MemoryEngine.h>

namespace orvo::desktop {
namespace {

class PartTreeTest : public testing::Test {
protected:
    // A to-do of that name is a part of the one of that id; its UID is its name.
    std::int64_t Add(const std::string& name, const std::string& whole, bool isPrivate = false) {
        CToDoRecord record(table);
        EXPECT_EQ(record.SetDescriptionUtf8(name), 0);
        EXPECT_EQ(record.SetPrivate(isPrivate ? 1 : 0), 0);
        EXPECT_EQ(record.SetSource("BEGIN:VTODO\r\nUID:" + name + "\r\nSUMMARY:" + name +
                                   "\r\nEND:VTODO\r\n"),
                  0);
        EXPECT_EQ(table.Add(record), 0);
        EditToDoText(record, [&](ToDoText& toDo) { return WithParent(toDo, whole); });
        return record.GetId();
    }

    // Its parts as an outline, such as "a (b* c)"; completed ones have a star.
    std::string Outline(std::int64_t whole) {
        std::string text;
        for (const ToDoPart& part : PartEdits(context).PartsOf(whole)) text += TextOf(part);
        return text;
    }
    static std::string TextOf(const ToDoPart& part) {
        std::string parts;
        for (const ToDoPart& each : part.parts) parts += TextOf(each);
        return (part.isMasked ? "?" : part.text) + (part.isCompleted ? "*" : "") +
               (parts.empty() ? "" : "(" + parts + ")") + " ";
    }

    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&tree, static_cast<Qt::Key>(key), modifiers);
        Settle();
    }
    // Types into the field over an item, and ends it with that key.
    void Type(const char* text, Qt::Key end) {
        auto* field = tree.findChild<QLineEdit*>();
        ASSERT_NE(field, nullptr);
        QTest::keyClicks(field, text);
        QTest::keyClick(field, end);
        Settle();
    }
    // What is done leaves the next thing to do for later, a few times.
    static void Settle() {
        for (int i = 0; i < 4; ++i) QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    MemoryEngine engine;
    CToDoTable table{engine};
    TodoParts parts{table};
    Told ofPrivate = Told::Whole;
    PartsContext context{table,
                         [this]() -> TodoParts& {
                             parts.SetChanged({});
                             parts.Read();
                             return parts;
                         },
                         [this](WayOut, const CToDoRecord& record) {
                             return record.IsPrivate() != 0 ? ofPrivate : Told::Whole;
                         },
                         [] { return false; },
                         [this](const QString&, const std::function<long()>& change) {
                             return change() == 0 ? std::string() : engine.LastError();
                         }};
    PartTree tree{context, {[] {}, {}}};
};

TEST_F(PartTreeTest, KeysChangeTheParts) {
    const std::int64_t whole = Add("whole", "");
    Add("a", "whole");
    Add("b", "whole");
    tree.show();
    tree.Show(whole);
    const struct {
        const char* why;
        std::function<void()> press;
        const char* want;
    } steps[] = {
        {"Space ticks", [&] { Press(Qt::Key_Down), Press(Qt::Key_Space); }, "a* b "},
        {"the order", [&] { Press(Qt::Key_Down, Qt::AltModifier); }, "b a* "},
        {"below the one above",
         [&] { Press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier); }, "b(a* ) "},
        {"a new one beside it",
         [&] {
             Press(Qt::Key_Insert);
             Type("c", Qt::Key_Return);
         },
         "b(a* c ) "},
        {"left, nothing comes",
         [&] {
             Press(Qt::Key_Insert);
             Type("d", Qt::Key_Escape);
         },
         "b(a* c ) "},
        {"out again", [&] { Press(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier); },
         "b(a* ) c "},
        {"another text",
         [&] {
             Press(Qt::Key_F2);
             Type("e", Qt::Key_Return);
         },
         "b(a* ) e "},
        {"up", [&] { Press(Qt::Key_Up, Qt::AltModifier); }, "e b(a* ) "},
        {"taken out", [&] { Press(Qt::Key_Delete); }, "b(a* ) "},
    };
    for (const auto& step : steps) {
        step.press();
        EXPECT_EQ(Outline(whole), step.want) << step.why;
    }
}

TEST_F(PartTreeTest, APartNeverGoesBelowItselfAndAMaskedOneTellsNothing) {
    const std::int64_t whole = Add("whole", "");
    const std::int64_t a = Add("a", "whole");
    const std::int64_t b = Add("b", "a");
    Add("secret", "whole", true);
    PartEdits(context).Move(a, b, 0);
    ofPrivate = Told::Masked;
    EXPECT_EQ(Outline(whole), "a(b ) ? ");
    EXPECT_EQ(PartEdits(context).OpenPartsOf(whole), (std::vector<std::int64_t>{a, b}));
    ofPrivate = Told::Nothing;
    EXPECT_EQ(Outline(whole), "a(b ) ");
}

}  // namespace
}  // namespace orvo::desktop
