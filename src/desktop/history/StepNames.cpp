// What steps of the history are called, and why they can't be taken back.
// SPDX-License-Identifier: MIT
#include "StepNames.h"

#include <QString>
#include <algorithm>
#include <initializer_list>
#include <set>

#include <contracts/RecordFields.h>
#include <desktop/texts/Texts.h>

#include "RowImage.h"

namespace orvo::desktop {
namespace {

// A name that was pasted in may be a book.
constexpr qsizetype kLongestName = 60;

QString NameOfText(const TextKey& key, const TextChange& change) {
    if (key.texts == StoreEngine::TextKind::Category) {
        return !change.before  ? Text("New category")
               : !change.after ? Text("Remove category")
                               : Text("Rename category");
    }
    return !change.before  ? Text("New label")
           : !change.after ? Text("Remove label")
                           : Text("Rename label");
}

QString NameOfAddresses(Deed deed, std::int64_t count) {
    switch (deed) {
        case Deed::Add:
            return count == 1 ? Text("New address")
                              : CountText("New %1 address", "New %1 addresses", count);
        case Deed::ChangeCategory:
            return Text("Change category");
        case Deed::Delete:
            return count == 1 ? Text("Delete address")
                              : CountText("Delete %1 address", "Delete %1 addresses", count);
        case Deed::Undelete:
            return count == 1 ? Text("Restore address")
                              : CountText("Restore %1 address", "Restore %1 addresses", count);
        case Deed::Remove:
            return count == 1 ? Text("Delete address for good")
                              : CountText("Delete %1 address for good",
                                          "Delete %1 addresses for good", count);
        default:
            return count == 1 ? Text("Edit address")
                              : CountText("Edit %1 address", "Edit %1 addresses", count);
    }
}

QString NameOfToDos(Deed deed, std::int64_t count) {
    switch (deed) {
        case Deed::Add:
            return count == 1 ? Text("New to-do")
                              : CountText("New %1 to-do", "New %1 to-dos", count);
        case Deed::ChangeCategory:
            return Text("Change category");
        case Deed::Complete:
            return count == 1 ? Text("Complete to-do")
                              : CountText("Complete %1 to-do", "Complete %1 to-dos", count);
        case Deed::Reopen:
            return count == 1 ? Text("Reopen to-do")
                              : CountText("Reopen %1 to-do", "Reopen %1 to-dos", count);
        case Deed::Delete:
            return count == 1 ? Text("Delete to-do")
                              : CountText("Delete %1 to-do", "Delete %1 to-dos", count);
        case Deed::Undelete:
            return count == 1 ? Text("Restore to-do")
                              : CountText("Restore %1 to-do", "Restore %1 to-dos", count);
        case Deed::Remove:
            return count == 1
                       ? Text("Delete to-do for good")
                       : CountText("Delete %1 to-do for good", "Delete %1 to-dos for good", count);
        default:
            return count == 1 ? Text("Edit to-do")
                              : CountText("Edit %1 to-do", "Edit %1 to-dos", count);
    }
}

// An edit stands for deeds of several sorts.
QString NameOfRows(const StepChanges& step, TableKind kind) {
    std::set<Deed> deeds;
    if (!step.Added(kind).empty()) deeds.insert(Deed::Add);
    for (const auto& [id, change] : step.Changed(kind)) deeds.insert(change.deed);
    const Deed deed = deeds.size() == 1 ? *deeds.begin() : Deed::Edit;
    const auto count =
        static_cast<std::int64_t>(step.Added(kind).size() + step.Changed(kind).size());
    return kind == TableKind::Address ? NameOfAddresses(deed, count) : NameOfToDos(deed, count);
}

std::size_t RowCount(const StepChanges& step, TableKind kind) {
    return step.Added(kind).size() + step.Changed(kind).size();
}

QString FirstLine(std::string_view text) {
    QString line = FromUtf8(text.substr(0, text.find_first_of("\r\n"))).simplified();
    if (line.size() <= kLongestName) return line;
    const bool isInCharacter = line.at(kLongestName).isLowSurrogate();
    return line.left(isInCharacter ? kLongestName - 1 : kLongestName) + QChar(0x2026);
}

// Empty where the row has no name, or may not be named.
QString NameOfRow(TableKind kind, const WholeRow& whole) {
    PackedFields fields;
    if ((whole.row.flags & RowFlag::Private) != 0 || !fields.Assign(whole.fields)) return {};
    if (kind == TableKind::ToDo) {
        return FirstLine(fields.Get(static_cast<std::uint8_t>(ToDoField::Description)));
    }
    QString name;
    for (const AddressField field :
         {AddressField::Name, AddressField::First, AddressField::Company}) {
        if (name.isEmpty()) name = FirstLine(fields.Get(static_cast<std::uint8_t>(field)));
    }
    return name;
}

}  // namespace

std::string NameOfStep(const StepChanges& step) {
    const std::size_t addresses = RowCount(step, TableKind::Address);
    const std::size_t toDos = RowCount(step, TableKind::ToDo);
    QString name;
    if (!step.Texts().empty()) {
        const auto& [key, change] = *step.Texts().begin();
        name = NameOfText(key, change);
    } else if (toDos == 0) {
        name = NameOfRows(step, TableKind::Address);
    } else if (addresses == 0) {
        name = NameOfRows(step, TableKind::ToDo);
    } else {
        name = CountText("Change %1 entry", "Change %1 entries",
                         static_cast<std::int64_t>(addresses + toDos));
    }
    return name.toStdString();
}

std::string RowIsOtherwise(TableKind kind, const std::optional<RowImage>& now,
                           const std::optional<RowImage>& before) {
    const std::optional<RowImage>& known = now ? now : before;
    const QString name = known ? NameOfRow(kind, RowOfImage(*known)) : QString();
    if (name.isEmpty()) {
        return (now ? Text("Another program has changed an entry of this step. Nothing was "
                           "changed.")
                    : Text("Another program has removed an entry of this step. Nothing was "
                           "changed."))
            .toStdString();
    }
    return (now ? Text("Another program has changed “%1”. Nothing was changed.")
                : Text("Another program has removed “%1”. Nothing was changed."))
        .arg(name)
        .toStdString();
}

std::string TextIsOtherwise(const TextKey& key, const TextChange& change) {
    const bool isCategory = key.texts == StoreEngine::TextKind::Category;
    const QString name = FirstLine(change.after ? *change.after : change.before.value_or(""));
    return (isCategory ? Text("Another program has changed the category “%1”. Nothing was changed.")
                       : Text("Another program has changed the label “%1”. Nothing was changed."))
        .arg(name)
        .toStdString();
}

}  // namespace orvo::desktop
