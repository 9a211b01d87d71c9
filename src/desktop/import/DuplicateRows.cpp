// Two addresses side by side, field by field.
// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <QPalette>

#include <desktop/import/AddressRows.h>
#include <desktop/import/DuplicateRows.h>
#include <desktop/import/Duplicates.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kDuplicateColumns = 3;
// A note may be of any length; its beginning is enough here.
constexpr qsizetype kLongestText = 2000;

QString NoteOf(const CAddressRecord& record) {
    std::string note;
    record.GetNoteUtf8(note);
    return FromUtf8(note);
}

QString PhoneOf(const CAddressRecord& record, long slot) {
    const std::string_view number = record.Utf8(PhoneField(slot));
    if (number.empty()) return {};
    return Text("%1: %2").arg(PhoneLabelOf(record, slot), FromUtf8(number));
}

bool IsSameOrEqual(std::string_view left, std::string_view right) {
    return left == right || IsSameContact(left, right);
}

QString PrivacyOf(const CAddressRecord& record) {
    return record.IsPrivate() ? Text("Yes") : Text("No");
}

// A tint of the colour of a selection, on light and on dark ground alike.
QColor DifferenceColour() {
    QColor colour = QGuiApplication::palette().color(QPalette::Highlight);
    constexpr int kFaint = 56;
    colour.setAlpha(kFaint);
    return colour;
}

QString Shortened(const QString& text) {
    return text.size() <= kLongestText ? text : text.left(kLongestText) + QChar(0x2026);
}

}  // namespace

void DuplicateRows::Show(const CAddressRecord& first, const CAddressRecord& second) {
    beginResetModel();
    m_rows.clear();
    for (const AddressField field : kPlainFields) {
        Add(LabelOf(field), FromUtf8(first.Utf8(field)), FromUtf8(second.Utf8(field)));
    }
    AddPhones(first, second);
    const auto& table = static_cast<const CAddressTable&>(first.GetTable());
    for (int number = 1; number <= kCustomFields; ++number) {
        const AddressField field = CustomField(number);
        Add(CustomLabelOf(table, number), FromUtf8(first.Utf8(field)),
            FromUtf8(second.Utf8(field)));
    }
    Add(Text("Category"), FromUtf8(CategoryOf(first)), FromUtf8(CategoryOf(second)));
    if (first.IsPrivate() || second.IsPrivate()) {
        Add(Text("Private"), PrivacyOf(first), PrivacyOf(second));
    }
    Add(Text("Note"), NoteOf(first), NoteOf(second));
    endResetModel();
}

void DuplicateRows::Add(const QString& label, const QString& first, const QString& second) {
    if (!first.isEmpty() || !second.isEmpty()) {
        m_rows.push_back({label, first, second, first != second});
    }
}

// The same number stands on one line, whatever its slots and the way it is written.
void DuplicateRows::AddPhones(const CAddressRecord& first, const CAddressRecord& second) {
    std::array<bool, kPhoneSlots + 1> isShown{};
    int number = 0;
    const auto add = [&](const QString& left, const QString& right, bool isSame) {
        m_rows.push_back({Text("Number %1").arg(++number), left, right, !isSame});
    };
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        const std::string_view text = first.Utf8(PhoneField(slot));
        if (text.empty()) continue;
        long same = 1;
        while (same <= kPhoneSlots && (isShown.at(static_cast<std::size_t>(same)) ||
                                       !IsSameOrEqual(text, second.Utf8(PhoneField(same))))) {
            ++same;
        }
        const bool isFound = same <= kPhoneSlots;
        if (isFound) isShown.at(static_cast<std::size_t>(same)) = true;
        add(PhoneOf(first, slot), isFound ? PhoneOf(second, same) : QString(), isFound);
    }
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        const bool isLeft = !isShown.at(static_cast<std::size_t>(slot));
        const QString text = PhoneOf(second, slot);
        if (isLeft && !text.isEmpty()) add({}, text, false);
    }
}

int DuplicateRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int DuplicateRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kDuplicateColumns;
}

QVariant DuplicateRows::data(const QModelIndex& index, int role) const {
    const Row& row = m_rows.at(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole) {
        const QString& text = index.column() == 0   ? row.label
                              : index.column() == 1 ? row.first
                                                    : row.second;
        return Shortened(text);
    }
    if (role == Qt::BackgroundRole && row.differs && index.column() > 0) return DifferenceColour();
    // Those who don't see the colour hear it.
    if (role == Qt::AccessibleDescriptionRole && row.differs) return Text("Differs");
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeading | Qt::AlignVCenter);
    return {};
}

QVariant DuplicateRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return section == 0 ? Text("Field") : section == 1 ? m_first : m_second;
}

}  // namespace orvo::desktop
