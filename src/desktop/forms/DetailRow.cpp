// One detail of a person in a form.
// SPDX-License-Identifier: MIT
#include <QGridLayout>
#include <QJsonArray>
#include <QVariant>

#include <desktop/forms/DetailRow.h>
#include <desktop/forms/FormFields.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

DetailRow::DetailRow(const Detail& detail, bool isNew)
    : m_given(detail),
      m_isNew(isNew),
      m_choice(new DetailChoice(detail)),
      m_value(DetailValue::Make(detail)),
      m_remove(new QToolButton) {
    const QString kind = Text(NameOf(detail.kind));
    m_remove->setText(QChar(0x2715));
    m_remove->setAutoRaise(true);
    m_remove->setToolTip(Text("Remove"));
    m_remove->setAccessibleName(Text("Remove: %1").arg(kind));
    m_remove->setFocusPolicy(Qt::StrongFocus);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(MakeSpokenLabel(Text("Label: %1").arg(kind), *m_choice), 0, 0);
    grid->addWidget(m_choice, 0, 0, Qt::AlignTop);
    grid->addWidget(m_value, 0, 1);
    grid->addWidget(m_remove, 0, 2, Qt::AlignTop);
    grid->setColumnStretch(1, 1);
}

void DetailRow::SetRemoved() {
    m_isRemoved = true;
    hide();
}

// A line of another property can't become this one: it goes, and a new one comes.
void DetailRow::AddEdits(std::vector<DetailEdit>& edits) const {
    const bool isGone = m_isRemoved || m_value->IsEmpty();
    if (m_isNew && isGone) return;
    Detail detail = m_given;
    m_choice->PutInto(detail);
    m_value->PutInto(detail);
    const bool isOther = detail.kind != m_given.kind;
    if (!m_isNew && (isGone || isOther)) edits.push_back({false, true, m_given});
    if (isGone) return;
    const bool isChanged = m_isNew || m_choice->IsChanged() || m_value->IsChanged();
    if (isChanged) edits.push_back({m_isNew || isOther, false, detail});
}

QJsonObject DetailRow::Shown() const {
    return {{"line", m_isNew ? -1 : static_cast<qint64>(m_given.line)},
            {"isRemoved", m_isRemoved},
            {"choice", m_choice->currentText()},
            {"texts", QJsonArray::fromStringList(m_value->Texts())}};
}

void DetailRow::Show(const QJsonObject& shown) {
    m_choice->setEditText(shown["choice"].toString());
    m_value->SetTexts(shown["texts"].toVariant().toStringList());
    if (shown["isRemoved"].toBool()) SetRemoved();
}

}  // namespace orvo::desktop
