// What a detail of a person is for, as a choice in a form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

#include <desktop/forms/StillWheel.h>
#include <people/Person.h>

namespace orvo::desktop {

// A box with the usual words, such as "Home", in which the user may write words of his own. Of a
// messenger it names the service, of a day whether it is the birthday.
class DetailChoice : public StillWheel<QComboBox> {
public:
    explicit DetailChoice(const Detail& detail);

    bool IsChanged() const { return currentText() != m_shown; }
    // Sets the kind, the words, the label and the service to what the box says.
    void PutInto(Detail& detail) const;

private:
    bool TakeKind(const QString& part, Detail& detail) const;
    bool TakeWord(const QString& part, Detail& detail) const;

    Detail m_given;
    QString m_shown;
};

}  // namespace orvo::desktop
