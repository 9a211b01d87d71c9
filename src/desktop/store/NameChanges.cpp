// Changes to the names of a table: categories, labels, and the user's own fields.
// SPDX-License-Identifier: MIT
#include <memory>

#include <desktop/store/NameChanges.h>
#include <desktop/texts/Texts.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

using TextKind = StoreEngine::TextKind;

constexpr long kOk = 0;

TableKind KindOf(const StoreSession& session, const CBaseTable& table) {
    return &table == &session.Addresses() ? TableKind::Address : TableKind::ToDo;
}

QString WrongWithCategory(CBaseTable& table, const QString& name, int index) {
    const std::string utf8 = name.toStdString();
    if (utf8.empty()) return Text("A category needs a name.");
    if (CutCategoryName(utf8) != utf8) {
        const int bytes = SystemText("あ").GetLength();
        return Text(
                   "This name is too long for a category, which has room for 15 Latin letters, or "
                   "%1 Japanese ones.")
            .arg(kCategoryNameLength / bytes);
    }
    CCategory* found = nullptr;
    table.GetCategoryManager()->FindUtf8Name(utf8, found);
    return found && found->GetIndex() != index ? Text("There is a category of this name already.")
                                               : QString();
}

QString WrongWithLabel(const CAddressTable& table, const QString& name, int label) {
    if (name.isEmpty()) return Text("A label needs a name.");
    for (int other = 0; other < table.GetPhoneLabelCount(); ++other) {
        const auto isSame = [&name](const QString& text) {
            return text.compare(name, Qt::CaseInsensitive) == 0;
        };
        if (other != label && (isSame(ToQt(table.GetPhoneLabel(other).View())) ||
                               isSame(FromUtf8(table.StoredPhoneLabel(other))))) {
            return Text("There is a label of this name already.");
        }
    }
    return {};
}

QString Run(StoreSession& session, const QString& step, const std::function<long()>& change) {
    const std::string failure = session.Change(step.toStdString(), change);
    // What was written past the tables.
    session.Addresses().RefreshTexts();
    session.ToDos().RefreshTexts();
    return failure.empty() ? QString() : Text("Nothing was changed.") + "\n\n" + FromUtf8(failure);
}

long WriteText(StoreSession& session, TableKind kind, TextKind texts, int number,
               const QString& text) {
    return static_cast<long>(
        session.History().Engine().WriteText(kind, texts, number, text.toStdString()));
}

// Of all records, deleted ones too. They are found first, as a walk doesn't like changes.
std::vector<std::int64_t> AllIds(StoreEngine& engine, TableKind kind) {
    std::vector<std::int64_t> ids;
    for (const auto walk : {&StoreEngine::Walk, &StoreEngine::WalkDeleted}) {
        const std::unique_ptr<StoreCursor> cursor = (engine.*walk)(kind);
        StoredRow row;
        while (cursor && cursor->Next(row) == StoreStatus::Ok) ids.push_back(row.id);
    }
    return ids;
}

template <class Record, class Table>
long LeaveCategory(StoreEngine& engine, TableKind kind, Table& table, int index) {
    for (const std::int64_t id : AllIds(engine, kind)) {
        Record record(table);
        int category = kNoCategory;
        if (table.Find(id, record) != kOk || record.GetCategoryId(category) != kOk) continue;
        if (category != index) continue;
        if (const long status = record.SetCategoryId(kNoCategory); status != kOk) return status;
    }
    return kOk;
}

long ChangeLabels(StoreSession& session, int label, int other) {
    for (const std::int64_t id : AllIds(session.History().Engine(), TableKind::Address)) {
        CAddressRecord record(session.Addresses());
        if (session.Addresses().Find(id, record) != kOk) continue;
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            long given = -1;
            if (record.GetPhoneLabelID(slot, given) != kOk || given != label) continue;
            const long status = record.SetPhoneLabelID(slot, other);
            if (status != kOk) return status;
        }
    }
    return kOk;
}

}  // namespace

QString AddCategory(StoreSession& session, CBaseTable& table, const QString& typed) {
    const QString name = typed.trimmed();
    if (QString wrong = WrongWithCategory(table, name, -1); !wrong.isEmpty()) return wrong;
    if (table.GetCategoryManager()->GetCount() >= kCategoryCount) {
        return Text("There is room for 16 categories. Rename or remove one of them.");
    }
    return Run(session, Text("New category"), [&] {
        auto category = std::make_unique<CCategory>();
        category->SetNameUtf8(name.toStdString());
        const CatError error = table.GetCategoryManager()->Add(category.get());
        if (error == 0) static_cast<void>(category.release());  // the manager's
        return static_cast<long>(error);
    });
}

QString RenameCategory(StoreSession& session, CBaseTable& table, int index, const QString& typed) {
    const QString name = typed.trimmed();
    if (QString wrong = WrongWithCategory(table, name, index); !wrong.isEmpty()) return wrong;
    return Run(session, Text("Rename category"), [&] {
        return WriteText(session, KindOf(session, table), TextKind::Category, index, name);
    });
}

QString RemoveCategory(StoreSession& session, CBaseTable& table, int index) {
    const TableKind kind = KindOf(session, table);
    StoreEngine& engine = session.History().Engine();
    return Run(session, Text("Remove category"), [&] {
        const long status =
            kind == TableKind::Address
                ? LeaveCategory<CAddressRecord>(engine, kind, session.Addresses(), index)
                : LeaveCategory<CToDoRecord>(engine, kind, session.ToDos(), index);
        if (status != kOk) return status;
        return static_cast<long>(engine.RemoveText(kind, TextKind::Category, index));
    });
}

// The number of a label that was removed is given anew.
QString AddLabel(StoreSession& session, const QString& typed) {
    const QString name = typed.trimmed();
    const CAddressTable& table = session.Addresses();
    if (QString wrong = WrongWithLabel(table, name, -1); !wrong.isEmpty()) return wrong;
    int number = 0;
    while (!table.GetPhoneLabel(number).IsEmpty()) ++number;
    return Run(session, Text("New label"),
               [&] { return session.Addresses().SetPhoneLabel(number, FromQt(name)); });
}

QString RenameLabel(StoreSession& session, int label, const QString& typed) {
    const QString name = typed.trimmed();
    if (QString wrong = WrongWithLabel(session.Addresses(), name, label); !wrong.isEmpty()) {
        return wrong;
    }
    if (ToQt(session.Addresses().GetPhoneLabel(label).View()) == name) return {};
    return Run(session, Text("Rename label"), [&] {
        return WriteText(session, TableKind::Address, TextKind::PhoneLabel, label, name);
    });
}

QString RemoveLabel(StoreSession& session, int label, int other) {
    return Run(session, Text("Remove label"), [&] {
        if (const long status = ChangeLabels(session, label, other); status != kOk) return status;
        return static_cast<long>(
            session.History().Engine().RemoveText(TableKind::Address, TextKind::PhoneLabel, label));
    });
}

QString RenameCustomField(StoreSession& session, int number, const QString& typed) {
    const QString name = typed.trimmed();
    if (ToQt(session.Addresses().GetCustomLabel(number).View()) == name) return {};
    return Run(session, Text("Rename field"), [&] {
        return WriteText(session, TableKind::Address, TextKind::CustomLabel, number, name);
    });
}

}  // namespace orvo::desktop
