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
    return ReadAgain(record);
}

long PersonFields::ReadAgain(const CAddressRecord& record) {
    auto person = std::make_shared<Person>();
    const long status = ReadKeptPerson(record, *person);
    if (status == 0) m_person = std::move(person);
    return status;
}

void PersonFields::AddPhoto(QVBoxLayout& column) {
    m_photo = new PhotoField(m_person->photo, m_face);
    column.addWidget(m_photo);
}

void PersonFields::AddTexts(QVBoxLayout& column) {
    auto* more = new QToolButton;
    auto* texts = new QWidget;
    auto* grid = new QGridLayout(texts);
    grid->setContentsMargins(0, 0, 0, 0);
    bool isOpen = false;
    for (const TextRow& row : kTexts) {
        const std::string& text = TextOf(*m_person, row.text);
        auto* field = new LineField(text);
        field->setObjectName(row.objectName);
        const int number = grid->rowCount();
        grid->addWidget(MakeLabel(Text(row.label), *field), number, 0);
        grid->addWidget(field, number, 1);
        m_texts.push_back({row.text, PlainLabel(Text(row.label)), field});
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
    m_sections.push_back({new DetailSection(kind, *m_person), m_person});
    column.addWidget(m_sections.back().field);
}

PersonEdits PersonFields::Edits() const {
    PersonEdits edits;
    for (const Section& section : m_sections) section.field->AddEdits(edits.details);
    for (const TextLine& line : m_texts) {
        if (line.field->IsChanged()) edits.texts.emplace_back(line.text, line.field->Utf8());
    }
    edits.photo = m_photo->Edit();
    return edits;
}

long PersonFields::Write(CAddressRecord& record, CAddressTable& table) const {
    PersonEdits edits = Edits();
    if (edits.IsEmpty()) return 0;
    Person present;
    if (const long status = ReadKeptPerson(record, present); status != 0) return status;
    edits.details.clear();
    for (const Section& section : m_sections) {
        std::vector<DetailEdit> details;
        section.field->AddEdits(details);
        for (DetailEdit& edit : details) {
            if (!edit.isNew) {
                const auto line = FindLine(present, *section.given, edit.detail.line);
                if (!line && edit.isRemoved) continue;
                edit.isNew = !line;
                edit.detail.line = line.value_or(0);
            }
            edits.details.push_back(std::move(edit));
        }
    }
    return EditPerson(record, table, edits);
}

PersonFields::Part PersonFields::PartOf(const TextLine& line) {
    LineField* field = line.field;
    const auto theirs = [this, text = line.text] { return TextOf(*m_person, text); };
    return {line.label,
            field,
            [field] { return field->IsChanged(); },
            [theirs] { return FromUtf8(theirs()); },
            [field] { return field->text(); },
            [theirs, field](bool keepsMine) { field->Give(theirs(), keepsMine); }};
}

// Rows that the user has changed stay as they are: what they say comes beside theirs.
PersonFields::Part PersonFields::PartOf(Section& each) {
    Section* section = &each;
    DetailSection* field = each.field;
    return {field->Name(),
            field,
            [field] {
                std::vector<DetailEdit> edits;
                field->AddEdits(edits);
                return !edits.empty();
            },
            [this, field] { return field->TextOf(*m_person); },
            [field] { return field->ShownText(); },
            [this, section](bool keepsMine) {
                if (keepsMine) return;
                section->given = m_person;
                section->field->Give(*m_person);
            }};
}

PersonFields::Part PersonFields::PhotoPart() {
    const auto textOf = [](const std::optional<PersonPhoto>& photo) {
        if (!photo) return QString();
        if (photo->bytes.empty()) return FromUtf8(photo->link);
        return CountText("%1 byte", "%1 bytes", std::ssize(photo->bytes));
    };
    return {Text("Photo"),
            m_photo,
            [this] { return m_photo->Edit().has_value(); },
            [this, textOf] { return textOf(m_person->photo); },
            [this, textOf] { return textOf(m_photo->Shown()); },
            [this](bool keepsMine) { m_photo->Give(m_person->photo, keepsMine); }};
}

std::vector<PersonFields::Part> PersonFields::Parts() {
    std::vector<Part> parts{PhotoPart()};
    for (const TextLine& line : m_texts) parts.push_back(PartOf(line));
    for (Section& section : m_sections) parts.push_back(PartOf(section));
    return parts;
}

bool PersonFields::Check() const {
    QWidget* wrong = nullptr;
    for (const Section& section : m_sections) {
        if (!wrong) wrong = section.field->Wrong();
    }
    if (wrong) GoTo(*wrong);
    return !wrong;
}

}  // namespace orvo::desktop
