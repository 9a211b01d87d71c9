// The texts of a record that the views share: its phones and custom fields.
// SPDX-License-Identifier: MIT
#include <contracts/TextServices.h>
#include <orvoshare/addressviews/RecordText.h>
#include <orvoshare/text/NameText.h>

namespace orvo {

namespace {

CString Shown(CString label, Labels labels) {
    if (labels == Labels::Whole) return label;
    CString line;
    GetFirstLine(label, line);
    RemoveTabs(line);
    return line;
}

}  // namespace

void AddLines(const CString& lines, const char* start, CString& text) {
    for (std::string_view rest = lines.View(); !rest.empty();) {
        text += start;
        text.Bytes() += TakeFirstLine(rest);
        text += '\n';
    }
}

bool AddPhoneLines(const CAddressRecord& record, const CAddressTable& table, Labels labels,
                   CString& text) {
    bool hasPhones = false;
    for (int slot = 1; slot <= kPhoneSlots; ++slot) {
        long id = -1;
        CString number;
        record.GetPhoneLabelID(slot, id);
        record.GetPhone(slot, number);
        const CString label = table.GetPhoneLabel(id);
        if (number.IsEmpty() || label.IsEmpty()) continue;
        RemoveTabs(number);
        text += Shown(label, labels);
        AddLines(number, "\t", text);
        hasPhones = true;
    }
    return hasPhones;
}

void AddCustomLines(const CAddressRecord& record, const CAddressTable& table, Labels labels,
                    bool isSetOff, CString& text) {
    for (int number = 1; number <= kCustomFields; ++number) {
        CString field;
        record.GetCustom(number, field);
        if (field.IsEmpty()) continue;
        if (isSetOff) text += '\n';
        isSetOff = false;
        text += Shown(table.GetCustomLabel(number), labels) + ":";
        AddLines(field, "\t", text);
    }
}

}  // namespace orvo
