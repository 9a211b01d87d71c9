// The one-line texts by which lists and cards name a person, and the cleaning of text for display.
// SPDX-License-Identifier: MIT
#include <contracts/TextServices.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/text/NameText.h>

namespace orvo {
namespace {

// The first line of a field, without tabs.
CString FirstLineOf(const CAddressRecord& record, AddressField field) {
    CString text;
    record.Get(field, text);
    CString line;
    GetFirstLine(text, line);
    RemoveTabs(line);
    return line;
}

CString StrippedField(const CAddressRecord& record, AddressField field) {
    CString text;
    record.Get(field, text);
    RemoveLeadingSpacesEx(text);
    return text;
}

}  // namespace

CString RemoveLeadingSpaces(const CString& source) {
    CString text = source;
    RemoveLeadingSpacesEx(text);
    return text;
}

void RemoveTabs(CString& text) {
    text.Replace("\t", "    ");
}

void AppendLines(const CString& text, CStringArray& lines) {
    for (std::string_view rest = text.View(); !rest.empty();) lines.Add(TakeFirstLine(rest));
}

void FormatName(CAddressRecord* record, CString& result) {
    const CString name = FirstLineOf(*record, AddressField::Name);
    const CString first = FirstLineOf(*record, AddressField::First);
    result = FullName(first, name, true);
    if (result.IsEmpty()) result = FirstLineOf(*record, AddressField::Company);
}

void GetFormattedName(CAddressRecord* record, CString& result, int useUnnamedText) {
    CString name = StrippedField(*record, AddressField::Name);
    CString first = StrippedField(*record, AddressField::First);
    if (name.IsEmpty()) {
        name = first;
        first.Empty();
    }
    if (!name.IsEmpty()) {
        result = FullName(first, name, true);
    } else if (useUnnamedText != 0) {
        result = OrvoShareText(kStringUnnamed);
    } else {
        result.Empty();
    }
}

}  // namespace orvo
