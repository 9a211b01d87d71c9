// The fields of an address as commands name them.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <cli/AddressFields.h>
#include <cli/Store.h>
#include <orvoshare/text/NameText.h>
#include <platform/text/CodePage.h>

namespace orvo::cli {
namespace {

CString FromUtf8(const std::string& utf8) {
    CString text;
    CodePage::System().FromUtf8(utf8, text.Bytes());
    return text;
}

}  // namespace

std::string ToUtf8(const CString& text) {
    std::string utf8;
    CodePage::System().ToUtf8(text.View(), utf8);
    return utf8;
}

int CategoryIndex(CBaseTable& table, const std::string& name) {
    CCategory* category = nullptr;
    table.GetCategoryManager()->FindName(FromUtf8(name), category);
    if (category == nullptr) {
        throw CommandError(kNothingFound, fmt::format("there is no category \"{}\"", name));
    }
    return category->GetIndex();
}

int CategoryIndexOrNew(CBaseTable& table, const std::string& name) {
    CCategoryMgr& manager = *table.GetCategoryManager();
    const CString text = FromUtf8(name);
    CCategory* category = nullptr;
    manager.FindName(text, category);
    if (category != nullptr) return category->GetIndex();

    if (text.IsEmpty() || text.GetLength() > kCategoryNameLength) {
        throw CommandError(kWrongUse, fmt::format("category \"{}\": a name has 1 to {} bytes", name,
                                                  kCategoryNameLength));
    }
    auto added = std::make_unique<CCategory>();
    added->SetName(text);
    if (manager.Add(added.get()) != 0) {
        throw CommandError(kWrongUse,
                           fmt::format("category \"{}\" can't be added: {}", name,
                                       manager.GetCount() == kCategoryCount ? "there are 16 already"
                                                                            : table.LastError()));
    }
    return added.release()->GetIndex();  // the manager has taken it
}

std::string CategoryName(CBaseTable& table, const CBaseRecord& record) {
    int index = kNoCategory;
    record.GetCategoryId(index);
    CCategory* category = nullptr;
    table.GetCategoryManager()->FindIndex(index, category);
    return category == nullptr ? std::string() : ToUtf8(category->GetName());
}

std::string FormattedName(CAddressRecord& record) {
    CString name;
    FormatName(&record, name);
    return ToUtf8(name);
}

}  // namespace orvo::cli
