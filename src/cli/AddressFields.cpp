// The fields of an address as commands name them.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <cli/AddressFields.h>
#include <cli/CommandError.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/text/NameText.h>
#include <platform/text/SystemText.h>

namespace orvo::cli {
std::string ModuleText(unsigned number) {
    return ToUtf8(OrvoShareText(number));
}

namespace {

CCategory* FindCategory(CBaseTable& table, const std::string& name) {
    CCategory* category = nullptr;
    table.GetCategoryManager()->FindUtf8Name(name, category);
    return category;
}

CCategory* CategoryOf(CBaseTable& table, const CBaseRecord& record) {
    int index = kNoCategory;
    record.GetCategoryId(index);
    CCategory* category = nullptr;
    table.GetCategoryManager()->FindIndex(index, category);
    return category;
}

}  // namespace

int CategoryIndex(CBaseTable& table, const std::string& name) {
    const CCategory* category = FindCategory(table, name);
    if (category == nullptr) {
        throw CommandError(kNothingFound, fmt::format("there is no category \"{}\"", name));
    }
    return category->GetIndex();
}

int CategoryIndexOrNew(CBaseTable& table, const std::string& name) {
    if (const CCategory* known = FindCategory(table, name)) return known->GetIndex();
    if (name.empty() || CutCategoryName(name) != name) {
        throw CommandError(kWrongUse, fmt::format("category \"{}\": a name has 1 to {} bytes", name,
                                                  kCategoryNameLength));
    }
    auto added = std::make_unique<CCategory>();
    added->SetNameUtf8(name);
    if (table.GetCategoryManager()->Add(added.get()) != 0) {
        throw CommandError(
            kWrongUse, fmt::format("category \"{}\" can't be added: {}", name, table.LastError()));
    }
    return added.release()->GetIndex();  // the manager has taken it
}

std::string CategoryName(CBaseTable& table, const CBaseRecord& record) {
    const CCategory* category = CategoryOf(table, record);
    return category == nullptr ? std::string() : category->ShownUtf8();
}

std::string StoredCategoryName(CBaseTable& table, const CBaseRecord& record) {
    const CCategory* category = CategoryOf(table, record);
    return category == nullptr ? std::string() : category->Utf8();
}

std::string FormattedName(CAddressRecord& record) {
    CString name;
    FormatName(&record, name);
    return ToUtf8(name);
}

}  // namespace orvo::cli
