// Two addresses side by side, field by field.
// SPDX-License-Identifier: MIT
#include <QStringList>
#include <algorithm>

#include <desktop/details/DayTexts.h>
#include <desktop/import/AddressRows.h>
#include <desktop/import/DuplicateRows.h>
#include <desktop/import/NumberPairs.h>
#include <desktop/texts/Texts.h>
#include <exchange/cards/CardMerge.h>
#include <people/PersonReader.h>

namespace orvo::desktop {
namespace {

// A note may be of any length, and a card of any number of lines; their beginning is enough here.
constexpr qsizetype kLongestText = 2000;
constexpr std::size_t kMostDetails = 200;

QString Shortened(const QString& text) {
    return text.size() <= kLongestText ? text : text.left(kLongestText) + QChar(0x2026);
}

QString NoteOf(const CAddressRecord& record) {
    std::string note;
    record.GetNoteUtf8(note);
    return FromUtf8(note);
}

QString PhoneOf(const CAddressRecord& record, long slot) {
    if (slot == 0) return {};
    return Text("%1: %2").arg(PhoneLabelOf(record, slot), FromUtf8(record.Utf8(PhoneField(slot))));
}

QString AddressOf(const CAddressRecord& record) {
    QStringList lines;
    for (const AddressField field : kPlainFields) {
        const std::string_view text = record.Utf8(field);
        if (IsAddressPart(field) && !text.empty()) lines << FromUtf8(text);
    }
    return lines.join('\n');
}

QString FurtherNamesOf(const Person& person) {
    QStringList names;
    for (const std::string* part :
         {&person.name.prefix, &person.name.middle, &person.name.suffix}) {
        if (!part->empty()) names << FromUtf8(*part);
    }
    return names.join(", ");
}

QString NicknameOf(const Person& person) {
    return FromUtf8(person.name.nickname);
}

QString RoleOf(const Person& person) {
    return FromUtf8(person.work.role);
}

QString FurtherCategoriesOf(const Person& person, const CAddressRecord& record) {
    const std::string shown = CategoryOf(record);
    QStringList names;
    for (const std::string& name : person.categories) {
        if (name != shown) names << FromUtf8(name);
    }
    return names.join(", ");
}

// A detail that no field of the record shows.
struct CardDetail {
    DetailKind kind;
    QString label;
    QString text;
    std::string_view once;  // OnceName of its property
    bool isShown = false;
};

std::vector<CardDetail> DetailsOf(const Person& person) {
    std::vector<CardDetail> details;
    for (const Detail& detail : person.details) {
        if (detail.isOfRecord || details.size() == kMostDetails) continue;
        CardDetail& added = details.emplace_back();
        added.kind = detail.kind;
        added.label =
            FromUtf8(TitleOf(detail, [](const char* name) { return Text(name).toStdString(); }));
        const bool isDay = detail.date && detail.date->ComesBack();
        added.text = isDay ? DateText(*detail.date) : FromUtf8(detail.text);
        added.once = OnceName(detail.property);
    }
    return details;
}

class Rows {
public:
    Rows(const CAddressRecord& first, const CAddressRecord& second)
        : m_first(first),
          m_second(second),
          m_usual(UsualChoices(first, second)),
          m_table(static_cast<CAddressTable&>(first.GetTable())) {
        std::string loss;  // what can be read is shown
        m_persons = {ReadPerson(first, m_table, loss), ReadPerson(second, m_table, loss)};
    }

    std::vector<DuplicateRow> Run() {
        AddPhoto();
        for (const AddressField field : kPlainFields) {
            if (!IsAddressPart(field)) AddField(field);
        }
        Add(Text("Address"), {AddressOf(m_first), AddressOf(m_second)},
            AddressFits(m_first, m_second) ? MergeChoices{} : Field(AddressField::Address));
        AddNumbers();
        AddDetails();
        for (int number = 1; number <= kCustomFields; ++number) {
            AddField(CustomLabelOf(m_table, number), CustomField(number));
        }
        MergeChoices category;
        category.category = true;
        Add(Text("Category"), {FromUtf8(CategoryOf(m_first)), FromUtf8(CategoryOf(m_second))},
            category);
        Add(Text("Further categories"), {FurtherCategoriesOf(m_persons[0], m_first),
                                         FurtherCategoriesOf(m_persons[1], m_second)});
        if (m_first.IsPrivate() || m_second.IsPrivate()) {
            const auto privacy = [](bool isPrivate) {
                return isPrivate ? Text("Yes") : Text("No");
            };
            Add(Text("Private"),
                {privacy(m_first.IsPrivate() != 0), privacy(m_second.IsPrivate() != 0)});
        }
        Add(Text("Note"), {NoteOf(m_first), NoteOf(m_second)});
        return std::move(m_rows);
    }

private:
    using Texts = std::array<QString, 2>;

    static MergeChoices Field(AddressField field) {
        MergeChoices choices;
        choices.fields.insert(field);
        return choices;
    }
    static MergeChoices Properties(std::set<std::string, std::less<>> names) {
        MergeChoices choices;
        choices.properties = std::move(names);
        return choices;
    }

    // Where one has nothing, nothing is to be chosen.
    DuplicateRow* Add(const QString& label, const Texts& texts, const MergeChoices& ofSecond = {}) {
        if (texts[0].isEmpty() && texts[1].isEmpty()) return nullptr;
        DuplicateRow& row = m_rows.emplace_back();
        row.label = label;
        row.texts = {Shortened(texts[0]), Shortened(texts[1])};
        row.differs = texts[0] != texts[1];
        if (row.differs && !texts[0].isEmpty() && !texts[1].isEmpty()) row.ofSecond = ofSecond;
        return &row;
    }

    void AddField(const QString& label, AddressField field) {
        Add(label, {FromUtf8(m_first.Utf8(field)), FromUtf8(m_second.Utf8(field))}, Field(field));
    }

    void AddPhoto() {
        if (!m_persons[0].photo && !m_persons[1].photo) return;
        DuplicateRow& row = m_rows.emplace_back();
        row.label = Text("Photo");
        for (std::size_t i = 0; i < m_persons.size(); ++i) {
            if (!m_persons[i].photo) continue;
            row.photos[i] = m_persons[i].photo->bytes;
            row.texts[i] = FromUtf8(m_persons[i].photo->link);
        }
        row.differs = row.photos[0] != row.photos[1] || row.texts[0] != row.texts[1];
        const bool isInBoth = m_persons[0].photo && m_persons[1].photo;
        if (row.differs && isInBoth) row.ofSecond = Properties({"PHOTO"});
    }

    // What only cards say of names and work stands with what fields do.
    void AddField(AddressField field) {
        if (field == AddressField::Company) return AddCompany();
        AddField(LabelOf(field), field);
        if (field == AddressField::First) {
            AddTexts(Text("Further names"), FurtherNamesOf, Properties({"N", "FN"}));
            AddTexts(Text("Nickname"), NicknameOf, Properties({"NICKNAME"}));
        } else if (field == AddressField::Title) {
            AddTexts(Text("Role"), RoleOf, {});
        }
    }

    // A department is one of its company.
    void AddCompany() {
        const auto textOf = [](const CAddressRecord& record, const Person& person) {
            QStringList lines{FromUtf8(record.Utf8(AddressField::Company)),
                              FromUtf8(person.work.department)};
            lines.removeAll(QString());
            return lines.join('\n');
        };
        MergeChoices ofSecond = Field(AddressField::Company);
        ofSecond.Add(Properties({"ORG"}));
        Add(LabelOf(AddressField::Company),
            {textOf(m_first, m_persons[0]), textOf(m_second, m_persons[1])}, ofSecond);
    }

    void AddTexts(const QString& label, QString (*textOf)(const Person&),
                  const MergeChoices& ofSecond) {
        Add(label, {textOf(m_persons[0]), textOf(m_persons[1])}, ofSecond);
    }

    // The same number stands on one line, whatever its slots and the way it is written.
    void AddNumbers() {
        int number = 0;
        for (const NumberPair& pair : PairNumbers(m_first, m_second)) {
            const Texts texts{PhoneOf(m_first, pair.first), PhoneOf(m_second, pair.second)};
            const MergeChoices ofSecond =
                pair.first == 0 ? MergeChoices{} : Field(PhoneField(pair.first));
            DuplicateRow* row = Add(Text("Number %1").arg(++number), texts, ofSecond);
            if (pair.first == 0 || row->ofSecond.IsEmpty()) continue;
            row->takesSecond = m_usual.fields.contains(PhoneField(pair.first));
        }
    }

    void AddDetails() {
        std::vector<CardDetail> first = DetailsOf(m_persons[0]);
        std::vector<CardDetail> second = DetailsOf(m_persons[1]);
        // Both are in the order of their kinds.
        auto next = second.begin();
        for (const CardDetail& detail : first) {
            for (; next != second.end() && next->kind < detail.kind; ++next) AddSecond(*next);
            AddFirst(detail, second);
        }
        for (; next != second.end(); ++next) AddSecond(*next);
    }

    void AddFirst(const CardDetail& detail, std::vector<CardDetail>& second) {
        const auto same = std::find_if(second.begin(), second.end(), [&](const auto& other) {
            if (other.isShown) return false;
            if (!detail.once.empty()) return other.once == detail.once;
            return other.label == detail.label && other.text == detail.text;
        });
        const bool isInBoth = same != second.end();
        if (isInBoth) same->isShown = true;
        Add(detail.label, {detail.text, isInBoth ? same->text : QString()},
            detail.once.empty() ? MergeChoices{} : Properties({std::string(detail.once)}));
    }

    void AddSecond(const CardDetail& detail) {
        if (!detail.isShown) Add(detail.label, {QString(), detail.text});
    }

    const CAddressRecord& m_first;
    const CAddressRecord& m_second;
    MergeChoices m_usual;
    CAddressTable& m_table;
    std::array<Person, 2> m_persons;
    std::vector<DuplicateRow> m_rows;
};

}  // namespace

std::vector<DuplicateRow> RowsOf(const CAddressRecord& first, const CAddressRecord& second) {
    return Rows(first, second).Run();
}

}  // namespace orvo::desktop
