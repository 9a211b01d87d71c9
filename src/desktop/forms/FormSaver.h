// What a form asks of the record that it shows: saving, and what others do to it meanwhile.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <vector>

#include <contracts/StoreEngine.h>

class QWidget;

namespace orvo::desktop {

struct SaveResult {
    StoreStatus status = StoreStatus::Ok;
    std::string reason{};  // one line, UTF-8, where the status isn't Ok
    // Nothing was saved, as a field that the user has changed was changed by somebody else, too.
    bool isUndecided = false;
    bool isInTrash = false;  // the record that is gone
};

// A field that somebody else has changed since the form was opened.
struct ForeignField {
    QString label;
    QString was;       // when the form was opened
    QString theirs;    // in the store
    QString mine;      // in the form
    bool isUndecided;  // the user has changed it, too, and hasn't said yet which one stays
    QWidget* field;    // the form's
};

// The face of RecordSaver that forms of all kinds use.
class FormSaver {
public:
    virtual ~FormSaver() = default;
    FormSaver(const FormSaver&) = delete;
    FormSaver& operator=(const FormSaver&) = delete;

    virtual bool IsChanged() const = 0;
    // Puts what was changed into the store: all of it, or nothing. Gone where somebody has removed
    // or deleted the record since the form was opened; with `bringsBack` one that lies in the trash
    // comes back first.
    virtual SaveResult Save(bool bringsBack) = 0;
    // Puts all that the form shows into the store as a new record.
    virtual SaveResult SaveAsNew() = 0;

    // Looks what others have done to the record. Fields that the user hasn't changed show it then.
    // Returns:  Gone, or why it can't be read.
    virtual SaveResult TakeForeign() = 0;
    virtual std::vector<ForeignField> ForeignFields() const = 0;
    // What stays of an undecided field, by its place among those.
    virtual void Decide(std::size_t place, bool takesTheirs) = 0;

protected:
    FormSaver() = default;
};

}  // namespace orvo::desktop
