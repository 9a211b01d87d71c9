// What only the card of a person holds, in the form of its record.
// SPDX-License-Identifier: MIT
#include <QGridLayout>
#include <QToolButton>
#include <optional>
#include <tuple>

#include <desktop/forms/PersonFields.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

struct TextRow {
    PersonText text;
    const char* objectName;
    const char* label;
};
constexpr TextRow kTexts[] = {
    {PersonText::Prefix, "prefix", Untranslated("Prefix:")},
    {PersonText::MiddleName, "middleName", Untranslated("Middle name:")},
    {PersonText::Suffix, "suffix", Untranslated("Suffix:")},
    {PersonText::Nickname, "nickname", Untranslated("Nickname:")},
    {PersonText::Department, "department", Untranslated("Department:")},
    {PersonText::Role, "role", Untranslated("Role:")},
};

const std::string& TextOf(const Person& person, PersonText text) {
    switch (text) {
        case PersonText::Prefix:
            return person.name.prefix;
        case PersonText::MiddleName:
            return person.name.middle;
        case PersonText::Suffix:
            return person.name.suffix;
        case PersonText::Nickname:
            return person.name.nickname;
        case PersonText::Department:
            return person.work.department;
        case PersonText::Role:
            break;
    }
    return person.work.role;
}

bool IsSame(const Detail& left, const Detail& right) {
    const auto parts = [](const Detail& detail) {
        return std::tie(detail.property, detail.text, detail.words, detail.label, detail.service,
                        detail.parts);
    };
    return parts(left) == parts(right);
}

// The line of the present card that says what that line of the other one says; nothing where none
// does.
std::optional<std::size_t> FindLine(const Person& present, const Person& other, std::size_t line) {
    std::optional<std::size_t> found;
    for (const Detail& given : other.details) {
        if (given.line != line) continue;
        for (const Detail& detail : present.details) {
            if (!IsSame(detail, given)) continue;
            if (!found || detail.line == line) found = detail.line;
        }
    }
    return found;
}

}  // namespace

long PersonFields::Read(const CAddressRecord& record) {
    m_face = FaceOf(record);
    return ReadKeptPerson(record, m_person);
}

void PersonFields::AddPhoto(QVBoxLayout& column) {
    m_photo = new PhotoField(m_person.photo, m_face);
    column.addWidget(m_photo);
}

void PersonFields::AddTexts(QVBoxLayout& column) {
    auto* more = new QToolButton;
    auto* texts = new QWidget;
    auto* grid = new QGridLayout(texts);
    grid->setContentsMargins(0, 0, 0, 0);
    bool isOpen = false;
    for (const TextRow& row : kTexts) {
        const std::string& text = TextOf(m_person, row.text);
        auto* field = new LineField(text);
        field->setObjectName(row.objectName);
        const int number = grid->rowCount();
        grid->addWidget(MakeLabel(Text(row.label), *field), number, 0);
        grid->addWidget(field, number, 1);
        m_texts.emplace_back(row.text, field);
        isOpen = isOpen || !text.empty();
    }
    more->setText(Text("More of the name and the work"));
    more->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    more->setAutoRaise(true);
    more->setFocusPolicy(Qt::StrongFocus);
    more->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
    // Shown before it is the form's, it would be a window.
    if (!isOpen) texts->hide();
    QObject::connect(more, &QToolButton::clicked, texts, [more, texts] {
        texts->setVisible(texts->isHidden());
        more->setArrowType(texts->isHidden() ? Qt::RightArrow : Qt::DownArrow);
    });
    column.addWidget(more);
    column.addWidget(texts);
}

void PersonFields::AddSection(DetailKind kind, QVBoxLayout& column) {
    m_sections.push_back(new DetailSection(kind, m_person));
    column.addWidget(m_sections.back());
}

PersonEdits PersonFields::Edits() const {
    PersonEdits edits;
    for (const DetailSection* section : m_sections) section->AddEdits(edits.details);
    for (const auto& [text, field] : m_texts) {
        if (field->IsChanged()) edits.texts.emplace_back(text, field->Utf8());
    }
    edits.photo = m_photo->Edit();
    return edits;
}

long PersonFields::Write(CAddressRecord& record, CAddressTable& table) const {
    PersonEdits edits = Edits();
    if (edits.IsEmpty()) return 0;
    Person present;
    if (const long status = ReadKeptPerson(record, present); status != 0) return status;
    std::vector<DetailEdit> details;
    for (DetailEdit& edit : edits.details) {
        if (!edit.isNew) {
            const auto line = FindLine(present, m_person, edit.detail.line);
            if (!line && edit.isRemoved) continue;
            edit.isNew = !line;
            edit.detail.line = line.value_or(0);
        }
        details.push_back(std::move(edit));
    }
    edits.details = std::move(details);
    return EditPerson(record, table, edits);
}

bool PersonFields::Check() const {
    QWidget* wrong = nullptr;
    for (const DetailSection* section : m_sections) {
        if (!wrong) wrong = section->Wrong();
    }
    if (wrong) GoTo(*wrong);
    return !wrong;
}

}  // namespace orvo::desktop
