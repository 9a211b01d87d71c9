// What a detail of a person says, as fields of a form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

#include <people/Person.h>

namespace orvo::desktop {

class DetailValue : public QWidget {
public:
    // The fields that the detail's kind asks for: a line, those of an address, or a day.
    // Owner:    the caller's.
    static DetailValue* Make(const Detail& detail);

    virtual bool IsChanged() const = 0;
    // Sets what was changed in the fields.
    virtual void PutInto(Detail& detail) const = 0;

    // The field that can't be saved as it is, which says why; null where all can.
    virtual QWidget* Wrong() { return nullptr; }

    // What the fields show, in the order of the Tab key, and the way back.
    virtual QStringList Texts() const = 0;
    virtual void SetTexts(const QStringList& texts) = 0;

    // True where nothing is filled in.
    bool IsEmpty() const { return Texts().join(QString()).trimmed().isEmpty(); }
};

}  // namespace orvo::desktop
