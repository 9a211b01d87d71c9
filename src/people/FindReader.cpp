// The texts by which records are found.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <exchange/calendar/ToDoFields.h>
#include <exchange/cards/CardFields.h>
#include <exchange/lines/EntryReader.h>
#include <people/DetailReader.h>
#include <people/FindReader.h>
#include <people/PersonReader.h>

namespace orvo {
namespace {

// What serves programs and tells people nothing, or is a field of the record.
constexpr std::array<std::string_view, 21> kPassedOver{
    "BEGIN",   "END",     "VERSION",       "PRODID",    "REV",    "CLASS",       "SORT-STRING",
    "NOTE",    "TITLE",   "CATEGORIES",    "PROFILE",   "DUE",    "DESCRIPTION", "SUMMARY",
    "DTSTAMP", "CREATED", "LAST-MODIFIED", "COMPLETED", "STATUS", "PRIORITY",    "SEQUENCE"};

bool IsPassedOver(const ContentLine& line) {
    constexpr std::string_view own = "X-ORVO-";
    const auto isIt = [&](std::string_view name) { return EqualsIgnoringCase(name, line.name); };
    const bool isData =
        StartsIgnoringCase(line.value, "data:") ||
        (!line.parameters.empty() && EncodingOf(line.parameters) == TransferEncoding::Base64);
    return line.name.empty() || isData || StartsIgnoringCase(line.name, own) ||
           std::any_of(kPassedOver.begin(), kPassedOver.end(), isIt);
}

void AddCategory(const CBaseRecord& record, FindText& text) {
    int index = kNoCategory;
    record.GetCategoryId(index);
    CCategory* category = nullptr;
    record.GetTable().GetCategoryManager()->FindIndex(index, category);
    if (category && index != kNoCategory) text.Add(category->ShownUtf8());
}

void AddNote(const CBaseRecord& record, FindText& text) {
    std::string note;
    if (record.GetNoteUtf8(note) == 0) text.Add(note);
}

// The lines of a card that no field of the record holds. A field may have been edited since, so
// what its line says counts no longer.
class CardLines {
public:
    CardLines(const CAddressRecord& record, const LineList& lines, std::string_view charset)
        : m_record(record),
          m_lines(lines),
          m_dialect(DialectOfCard(lines)),
          m_reader(lines, m_dialect, charset) {
        DeriveFields(lines, m_dialect, charset, m_fields);
    }

    void AddTo(FindText& text) {
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            const ContentLine line = m_lines[i];
            if (IsPassedOver(line) || IsNumberOfRecord(i)) continue;
            if (Is(Property::Name, i)) {
                AddParts(line, kFirstOtherName, text);
            } else if (Is(Property::Organization, i)) {
                AddParts(line, 1, text);
            } else if (Is(Property::FormattedName, i)) {
                if (IsNameAsItCame()) text.Add(m_reader.TextOf(line));
            } else if (!Is(Property::Address, i) && !Is(Property::Label, i)) {
                Add(i, text);
            }
        }
    }

private:
    static constexpr std::size_t kFirstOtherName = 2;  // behind family and given name
    static constexpr std::size_t kMostParts = 8;

    bool Is(Property property, std::size_t line) const {
        return m_fields.Line(property) == static_cast<std::ptrdiff_t>(line);
    }
    bool IsNumberOfRecord(std::size_t line) const {
        const auto& lines = m_fields.phoneLine;
        return std::find(lines.begin(), lines.end(), static_cast<std::ptrdiff_t>(line)) !=
               lines.end();
    }
    bool IsNameAsItCame() const {
        return m_fields.Text(AddressField::Name) == m_record.Utf8(AddressField::Name) &&
               m_fields.Text(AddressField::First) == m_record.Utf8(AddressField::First);
    }
    void AddParts(const ContentLine& line, std::size_t first, FindText& text) {
        for (std::size_t i = first; i < kMostParts; ++i) text.Add(m_reader.PartOf(line, i));
    }
    void Add(std::size_t line, FindText& text) {
        const std::optional<Detail> detail = m_reader.Read(line);
        if (!detail) return;
        text.Add(detail->service);
        if (detail->kind == DetailKind::Phone) {
            text.AddNumber(detail->text);
        } else {
            text.Add(detail->text);
        }
    }

    const CAddressRecord& m_record;
    LineList m_lines;
    Dialect m_dialect;
    DetailReader m_reader;
    CardFields m_fields;
};

}  // namespace

FindText FindTextOf(const CAddressRecord& record) {
    FindText text;
    for (std::size_t i = IndexOf(AddressField::Name); i < kTextFields; ++i) {
        text.Add(record.Utf8(static_cast<AddressField>(i)));
    }
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        const std::string_view number = record.Utf8(PhoneField(slot));
        if (number.find('@') == std::string_view::npos) text.AddDigits(number);
    }
    AddCategory(record, text);
    AddNote(record, text);
    std::string source;
    if (record.GetSource(source) != 0 || source.empty()) return text;
    EntryReader reader(source);
    Entry entry;
    if (reader.Next(entry) && entry.kind == EntryKind::Card) {
        CardLines(record, entry.lines, CharsetOf(record)).AddTo(text);
    }
    return text;
}

FindText FindTextOf(const CToDoRecord& record) {
    FindText text;
    text.Add(record.DescriptionUtf8());
    AddCategory(record, text);
    AddNote(record, text);
    ToDoParts parts;
    if (record.GetSourceParts(parts.shared, parts.rest) != 0 || parts.rest.empty()) return text;
    EntryReader reader(parts.rest);
    ToDoSource source;
    if (!ReadToDoSource(parts, reader, source)) return text;
    DetailReader lines(source.toDo.lines, source.dialect, CharsetOf(record));
    for (const ContentLine& line : source.toDo.lines) {
        if (!IsPassedOver(line)) text.Add(lines.TextOf(line));
    }
    return text;
}

}  // namespace orvo
