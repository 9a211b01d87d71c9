// The details of a person of one kind, in a form.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QJsonArray>
#include <algorithm>
#include <iterator>

#include <desktop/forms/DetailSection.h>
#include <desktop/forms/FormFields.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

struct SectionTexts {
    DetailKind kind;
    const char* objectName;
    const char* add;  // what the button does
};
constexpr SectionTexts kSections[] = {
    {DetailKind::Phone, "phones", Untranslated("Add a phone number")},
    {DetailKind::Email, "mails", Untranslated("Add an e-mail address")},
    {DetailKind::Messenger, "messengers", Untranslated("Add a messenger")},
    {DetailKind::Address, "addresses", Untranslated("Add an address")},
    {DetailKind::Page, "pages", Untranslated("Add a web page")},
    {DetailKind::Date, "dates", Untranslated("Add a birthday or another date")},
    {DetailKind::Relation, "relations", Untranslated("Add a relation")},
};

const SectionTexts& TextsOf(DetailKind kind) {
    return *std::find_if(std::begin(kSections), std::end(kSections),
                         [&](const SectionTexts& each) { return each.kind == kind; });
}

DetailKind SectionOf(const Detail& detail) {
    const bool isDay =
        detail.kind == DetailKind::Birthday || detail.kind == DetailKind::Anniversary;
    return isDay ? DetailKind::Date : detail.kind;
}

// More than a person has; so many fields would take long to show.
constexpr std::size_t kMostRows = 500;

// What it is and what it says.
QString LineOf(const Detail& detail) {
    const auto translated = [](const char* english) { return Text(english).toStdString(); };
    return FromUtf8(TitleOf(detail, translated) + ": " + orvo::TextOf(detail, translated));
}

// A label of an address has no parts, and an agent may be a whole card.
bool IsEditable(const Detail& detail) {
    return !detail.isOfRecord && detail.property != "LABEL" && detail.property != "AGENT";
}

}  // namespace

DetailSection::DetailSection(DetailKind kind, const Person& person)
    : m_kind(kind), m_heading(MakeHeading(Text(NameOf(kind)))), m_column(new QVBoxLayout(this)) {
    setObjectName(TextsOf(kind).objectName);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->addWidget(m_heading);
    AddRows(person);
    ShowHeading();
    AddButton();
}

bool DetailSection::IsOfSection(const Detail& detail) const {
    return SectionOf(detail) == m_kind && IsEditable(detail);
}

void DetailSection::AddRows(const Person& person) {
    for (const Detail& detail : person.details) {
        if (!IsOfSection(detail)) continue;
        if (m_rows.size() == kMostRows) {
            m_column->addWidget(new QLabel(QChar(0x2026)));
            break;
        }
        AddRow(detail, false);
    }
}

void DetailSection::Give(const Person& person) {
    if (isAncestorOf(QApplication::focusWidget())) m_add->setFocus();
    for (DetailRow* row : m_rows) {
        row->hide();
        row->deleteLater();
    }
    m_rows.clear();
    AddRows(person);
    ShowHeading();
}

QString DetailSection::Name() const {
    return Text(NameOf(m_kind));
}

QString DetailSection::TextOf(const Person& person) const {
    QStringList lines;
    for (const Detail& detail : person.details) {
        if (IsOfSection(detail)) lines.push_back(LineOf(detail));
    }
    return lines.join('\n');
}

QString DetailSection::ShownText() const {
    QStringList lines;
    for (const DetailRow* row : m_rows) {
        if (row->IsRemoved()) continue;
        std::vector<DetailEdit> edits;
        row->AddEdits(edits);
        lines.push_back(LineOf(edits.empty() ? row->Given() : edits.front().detail));
    }
    return lines.join('\n');
}

void DetailSection::AddButton() {
    const SectionTexts& texts = TextsOf(m_kind);
    m_add = new QToolButton;
    m_add->setText("+ " + Text(NameOf(m_kind)));
    m_add->setToolTip(Text(texts.add));
    m_add->setAccessibleName(Text(texts.add));
    m_add->setAutoRaise(true);
    m_add->setFocusPolicy(Qt::StrongFocus);
    connect(m_add, &QToolButton::clicked, this, [this] { AddNew(); });
    m_column->addWidget(m_add);
}

DetailRow* DetailSection::AddRow(const Detail& detail, bool isNew) {
    auto* row = new DetailRow(detail, isNew);
    connect(&row->RemoveButton(), &QToolButton::clicked, this, [this, row] { Remove(*row); });
    m_rows.push_back(row);
    if (m_add) {
        InsertRow(*row);
    } else {
        m_column->addWidget(row);
    }
    return row;
}

// The Tab key reaches the fields of a row before the button that made it.
void DetailSection::InsertRow(DetailRow& row) {
    QWidget* before = m_add->previousInFocusChain();
    while (before->focusPolicy() == Qt::NoFocus) before = before->previousInFocusChain();
    m_column->insertWidget(m_column->indexOf(m_add), &row);
    for (QWidget* field : row.findChildren<QWidget*>()) {
        const bool isOwn = field->window() == window() && !field->focusProxy();
        if (!isOwn || field->focusPolicy() == Qt::NoFocus) continue;
        setTabOrder(before, field);
        before = field;
    }
}

// What the user is likely to add next.
Detail DetailSection::Preset() const {
    Detail detail;
    detail.kind = m_kind;
    if (m_kind == DetailKind::Phone) detail.words.push_back(DetailWord::Mobile);
    if (m_kind == DetailKind::Email || m_kind == DetailKind::Address) {
        detail.words.push_back(DetailWord::Home);
    }
    if (m_kind != DetailKind::Date) return detail;
    for (const DetailKind kind : {DetailKind::Birthday, DetailKind::Anniversary}) {
        const bool isThere = std::any_of(m_rows.begin(), m_rows.end(), [&](const DetailRow* row) {
            return !row->IsRemoved() && row->Given().kind == kind;
        });
        if (isThere) continue;
        detail.kind = kind;
        break;
    }
    return detail;
}

void DetailSection::AddNew() {
    DetailRow* row = AddRow(Preset(), true);
    ShowHeading();
    GoTo(row->Value());
}

void DetailSection::Remove(DetailRow& row) {
    m_add->setFocus();
    row.SetRemoved();
    ShowHeading();
}

void DetailSection::ShowHeading() {
    m_heading->setVisible(std::any_of(m_rows.begin(), m_rows.end(),
                                      [](const DetailRow* row) { return !row->IsRemoved(); }));
}

void DetailSection::AddEdits(std::vector<DetailEdit>& edits) const {
    for (const DetailRow* row : m_rows) row->AddEdits(edits);
}

QWidget* DetailSection::Wrong() const {
    for (DetailRow* row : m_rows) {
        if (QWidget* field = row->Wrong()) return field;
    }
    return nullptr;
}

QJsonValue DetailSection::Kept() const {
    QJsonArray kept;
    for (const DetailRow* row : m_rows) {
        std::vector<DetailEdit> edits;
        row->AddEdits(edits);
        if (!edits.empty()) kept.append(row->Shown());
    }
    return kept;
}

DetailRow* DetailSection::RowOf(int line) const {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const DetailRow* each) {
        return !each->IsNew() && static_cast<int>(each->Given().line) == line;
    });
    return row == m_rows.end() ? nullptr : *row;
}

void DetailSection::ShowKept(const QJsonValue& kept) {
    const QJsonArray rows = kept.toArray();
    for (const auto& each : rows) {
        const QJsonObject shown = each.toObject();
        DetailRow* row = RowOf(shown["line"].toInt());
        if (!row && shown["isRemoved"].toBool()) continue;
        if (!row) row = AddRow(Preset(), true);
        row->Show(shown);
    }
    ShowHeading();
}

}  // namespace orvo::desktop
