// Tests of what steps are called that nobody has named.
// SPDX-License-Identifier: MIT
#include <functional>

#include "HistoryFixture.h"

namespace orvo::desktop {

using TextKind = StoreEngine::TextKind;

class StepNames : public HistoryFixture {
protected:
    // What a transaction that does `change` is called.
    std::string NameOf(const std::function<void(StepNames&)>& change) {
        StoreTransaction transaction(recorded);
        change(*this);
        EXPECT_EQ(transaction.Commit(), StoreStatus::Ok);
        return history.UndoName();
    }

public:
    void WriteText(TextKind texts, const char* text) {
        recorded.WriteText(TableKind::Address, texts, 3, text);
    }
    void RemoveText(TextKind texts) { recorded.RemoveText(TableKind::Address, texts, 3); }

    std::unique_ptr<CAddressRecord> NewAddress() { return AnAddress("new"); }
    std::unique_ptr<CToDoRecord> NewToDo() { return AToDo("new"); }

    CAddressTable& Addresses() { return addresses; }
    CToDoTable& ToDos() { return toDos; }

    std::unique_ptr<CAddressRecord> address = AnAddress("a");
    std::unique_ptr<CAddressRecord> secondAddress = AnAddress("b");
    std::unique_ptr<CToDoRecord> toDo = AToDo("c");
    std::unique_ptr<CToDoRecord> secondToDo = AToDo("d");
};

INSTANTIATE_TEST_SUITE_P(Engines, StepNames, testing::Values(EngineKind::Memory));

struct NameCase {
    const char* want;
    std::function<void(StepNames&)> change;
};

// Each goes on where the one before it has ended.
const NameCase kNames[] = {
    {"New address", [](auto& t) { t.NewAddress(); }},
    {"New 2 addresses", [](auto& t) { t.NewAddress(), t.NewAddress(); }},
    {"New address", [](auto& t) { t.NewAddress()->SetNoteUtf8("a note"); }},
    {"Edit address", [](auto& t) { t.address->SetNoteUtf8("a note"); }},
    {"Edit 2 addresses", [](auto& t) { t.address->SetPrivate(1), t.secondAddress->SetPrivate(1); }},
    {"Edit 2 addresses", [](auto& t) { t.address->SetPrivate(0), t.NewAddress(); }},
    {"Change category", [](auto& t) { t.address->SetCategoryId(2); }},
    {"Change category",
     [](auto& t) { t.address->SetCategoryId(3), t.secondAddress->SetCategoryId(3); }},
    {"Delete address", [](auto& t) { t.Addresses().Delete(*t.address); }},
    {"Restore address", [](auto& t) { t.Addresses().Undelete(*t.address); }},
    {"Delete 2 addresses",
     [](auto& t) { t.Addresses().Delete(*t.address), t.Addresses().Delete(*t.secondAddress); }},
    {"Delete 2 addresses for good",
     [](auto& t) { t.Addresses().Remove(*t.address), t.Addresses().Remove(*t.secondAddress); }},
    {"New to-do", [](auto& t) { t.NewToDo(); }},
    {"Edit to-do", [](auto& t) { t.toDo->SetPriority(1); }},
    {"Complete to-do", [](auto& t) { t.toDo->SetCompleted(1, 1); }},
    {"Complete to-do", [](auto& t) { t.secondToDo->SetCompleted(1, 0); }},
    {"Reopen 2 to-dos",
     [](auto& t) { t.toDo->SetCompleted(0, 0), t.secondToDo->SetCompleted(0, 0); }},
    {"Edit 2 to-dos", [](auto& t) { t.toDo->SetCompleted(1, 0), t.secondToDo->SetPriority(1); }},
    {"Edit to-do", [](auto& t) { t.toDo->SetCompleted(0, 0), t.toDo->SetPriority(5); }},
    {"Delete to-do", [](auto& t) { t.ToDos().Delete(*t.toDo); }},
    {"Delete to-do for good",
     [](auto& t) { t.ToDos().Undelete(*t.toDo), t.ToDos().Remove(*t.toDo); }},
    {"Change 2 entries", [](auto& t) { t.NewAddress(), t.NewToDo(); }},
    {"New category", [](auto& t) { t.WriteText(TextKind::Category, "x"); }},
    {"Rename category", [](auto& t) { t.WriteText(TextKind::Category, "y"); }},
    {"Remove category", [](auto& t) { t.RemoveText(TextKind::Category); }},
    {"Rename label", [](auto& t) { t.WriteText(TextKind::CustomLabel, "z"); }},
    {"Remove label", [](auto& t) { t.RemoveText(TextKind::CustomLabel); }},
    {"New label", [](auto& t) { t.WriteText(TextKind::CustomLabel, "x"); }},
};

TEST_P(StepNames, AStepIsNamedByWhatItDoes) {
    for (const NameCase& one : kNames) {
        EXPECT_EQ(NameOf(one.change), one.want) << &one - kNames;
    }
}

TEST_P(StepNames, AStepWithANameKeepsItOverTheNamesOfStepsInside) {
    {
        const EditHistory::Step outer(history, "outer");
        const EditHistory::Step inner(history, "inner");
        NewAddress();
    }
    EXPECT_EQ(history.UndoName(), "outer");
}

}  // namespace orvo::desktop
