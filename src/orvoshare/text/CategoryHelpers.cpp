// Categories by name, and the way from one table's categories to another's.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <string>

#include <orvoshare/text/CategoryHelpers.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>

namespace orvo {
namespace {

constexpr const char* kAllName = "All";

CString FromUtf16(const unsigned short* text) {
    std::u16string utf16;
    for (; *text != 0; ++text) utf16 += static_cast<char16_t>(*text);
    CString inPage;
    CodePage::System().FromUtf16(utf16, inPage.Bytes());
    return inPage;
}

}  // namespace

long CreateCategoryHelper(CCategoryMgr* manager, const char* name) {
    if (manager->GetCount() >= kCategoryCount) return kTooManyCategories;

    const std::string whole = ToUtf8(name);
    const std::string_view start = CutCategoryName(whole);
    if (start.empty()) return kCategoryNameEmpty;

    CCategory* namesake = nullptr;
    manager->FindUtf8Name(start, namesake);
    if (namesake != nullptr) return kCategoryNameTaken;

    auto category = std::make_unique<CCategory>();
    category->SetNameUtf8(start);
    if (manager->Add(category.get()) != 0) return kCategoryRefused;
    static_cast<void>(category.release());  // the manager's from now on
    return kCategoryMade;
}

int GetCategoryIndexHelper(CCategoryMgr* manager, const unsigned short* name) {
    const CString inPage = FromUtf16(name);
    if (inPage.CompareNoCase(kAllName) == 0) return kAllCategories;
    CCategory* category = nullptr;
    return manager->FindName(inPage, category) == 0 ? category->GetIndex() : -1;
}

int AdjustCategoryIndices(int category, CBaseTable* target, CBaseTable* source, int* map) {
    if (category != kAllCategories) {
        std::fill_n(map, kCategoryCount, category);
        return 1;
    }
    std::fill_n(map, kCategoryCount, kNoCategory);
    CCategoryMgr& from = *source->GetCategoryManager();
    CCategoryMgr& to = *target->GetCategoryManager();
    CCategory* each = nullptr;
    for (from.FindFirst(each); each != nullptr; from.FindNext(each)) {
        CCategory* match = nullptr;
        // By UTF-8, so that names which the page can't tell apart stay two.
        if (to.FindUtf8Name(each->Utf8(), match) == 0) map[each->GetIndex()] = match->GetIndex();
    }
    return 1;
}

int IsRecordValid(CBaseRecord* record) {
    return record != nullptr && !record->IsArchived() && !record->IsDeleted();
}

}  // namespace orvo
