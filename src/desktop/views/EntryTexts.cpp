// How entries read outside of their views: in one line, and for other programs.
// SPDX-License-Identifier: MIT
#include <QMimeData>
#include <QStringList>

#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>
#include <exchange/files/ExportFile.h>
#include <orvoshare/text/AddressBlock.h>
#include <orvoshare/text/NameText.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {
namespace {

constexpr const char* kCardType = "text/vcard";

QString TextOf(const CAddressRecord& record, AddressField field) {
    return FromUtf8(record.Utf8(field));
}

QStringList AddressLines(CAddressRecord& record) {
    const auto part = [&record](AddressField field) {
        CString text;
        record.Get(field, text);
        return text;
    };
    CStringArray lines;
    FormatAddress(lines, part(AddressField::Address), part(AddressField::City),
                  part(AddressField::State), part(AddressField::ZipCode),
                  part(AddressField::Country));
    QStringList result;
    for (int i = 0; i < lines.GetSize(); ++i) result += ToQt(lines.GetAt(i).View());
    return result;
}

// A paragraph: who it is, where he lives, how he is reached.
QString Paragraph(CAddressRecord& record) {
    QStringList lines{EntryName(record), TextOf(record, AddressField::Title),
                      TextOf(record, AddressField::Company)};
    lines.removeAll(QString());
    lines.removeDuplicates();
    lines += AddressLines(record);
    const auto& table = static_cast<CAddressTable&>(record.GetTable());
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        const QString phone = TextOf(record, PhoneField(slot));
        long label = 0;
        if (phone.isEmpty() || record.GetPhoneLabelID(slot, label) != 0) continue;
        lines += ToQt(table.GetPhoneLabel(label).View()) + ": " + phone;
    }
    return lines.join('\n') + '\n';
}

}  // namespace

QString EntryName(CBaseRecord& record) {
    if (auto* address = dynamic_cast<CAddressRecord*>(&record)) {
        CString name;
        FormatName(address, name);
        if (name.IsEmpty()) GetFormattedName(address, name, 1);
        return ToQt(name.View());
    }
    const QString text = FromUtf8(dynamic_cast<CToDoRecord&>(record).DescriptionUtf8());
    return text.section('\n', 0, 0);
}

QString LeftOutText(std::int64_t count) {
    return CountText("%1 private entry was left out.", "%1 private entries were left out.", count);
}

std::unique_ptr<QMimeData> EntriesAsMimeData(const std::vector<CBaseRecord*>& records) {
    auto data = std::make_unique<QMimeData>();
    QStringList texts;
    QByteArray cards;
    for (CBaseRecord* record : records) {
        if (auto* address = dynamic_cast<CAddressRecord*>(record)) {
            texts += Paragraph(*address);
            const std::string card =
                ExportCard(*address, static_cast<CAddressTable&>(record->GetTable()));
            cards.append(card.data(), static_cast<qsizetype>(card.size()));
        } else if (const auto* toDo = dynamic_cast<CToDoRecord*>(record)) {
            texts += FromUtf8(toDo->DescriptionUtf8());
        }
    }
    data->setText(texts.join('\n'));
    if (!cards.isEmpty()) data->setData(kCardType, cards);
    return data;
}

}  // namespace orvo::desktop
