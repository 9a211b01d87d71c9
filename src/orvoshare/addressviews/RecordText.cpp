// The texts of a record that the views share: its category, its phones and custom fields.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <contracts/TextServices.h>
#include <orvoshare/addressviews/RecordText.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/text/NameText.h>

namespace orvo {
namespace {

// The category of records without one goes by the name of the user's language until somebody
// renames it.
bool IsUnnamed(const CCategory& category) {
    return category.GetIndex() == kNoCategory && category.Utf8() == kNoCategoryName;
}

CString TextForNone() {
    const CDllResourceHandler resources(OrvoShareRecord());
    CString text;
    text.LoadString(kStringUncategorized);
    return text;
}

}  // namespace

CString CategoryText(CAddressTable& table, const CBaseRecord& record) {
    int index = -1;
    record.GetCategoryId(index);
    CCategory* category = nullptr;
    if (CCategoryMgr* manager = table.GetCategoryManager()) manager->FindIndex(index, category);
    return category != nullptr && !IsUnnamed(*category) ? category->GetName() : TextForNone();
}

void FillCategoryPopup(CCategoryMgr& categories, CCategoryCombo& combo, CMenu& menu,
                       UINT firstCommand) {
    FillCategoryMenu(&categories, &combo, &menu, static_cast<int>(firstCommand));
    CCategory* none = nullptr;
    categories.FindIndex(kNoCategory, none);
    if (none == nullptr || !IsUnnamed(*none)) return;
    const UINT command = firstCommand + kNoCategory;
    menu.ModifyMenu(command, MF_BYCOMMAND, command, TextForNone());
}

void AddLines(const CString& lines, const char* start, CString& text) {
    for (std::string_view rest = lines.View(); !rest.empty();) {
        text += start;
        text.Bytes() += TakeFirstLine(rest);
        text += '\n';
    }
}

bool AddPhoneLines(const CAddressRecord& record, const CAddressTable& table, CString& text) {
    bool hasPhones = false;
    for (int slot = 1; slot <= kPhoneSlots; ++slot) {
        long id = -1;
        CString number;
        record.GetPhoneLabelID(slot, id);
        record.GetPhone(slot, number);
        const CString label = table.GetPhoneLabel(id);
        if (number.IsEmpty() || label.IsEmpty()) continue;
        RemoveTabs(number);
        text += label;
        AddLines(number, "\t", text);
        hasPhones = true;
    }
    return hasPhones;
}

void AddCustomLines(const CAddressRecord& record, const CAddressTable& table, bool isSetOff,
                    CString& text) {
    for (int number = 1; number <= kCustomFields; ++number) {
        CString field;
        record.GetCustom(number, field);
        if (field.IsEmpty()) continue;
        if (isSetOff) text += '\n';
        isSetOff = false;
        text += table.GetCustomLabel(number) + ":";
        AddLines(field, "\t", text);
    }
}

}  // namespace orvo
