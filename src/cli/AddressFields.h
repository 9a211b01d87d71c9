// The fields of an address as commands name them.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include <cli/Output.h>
#include <contracts/RecordStore.h>
#include <platform/text/SystemText.h>

namespace orvo::cli {

// One text field: its option and its JSON key, and how `show` calls it.
struct FieldName {
    AddressField field;
    const char* option;
    const char* key;
    const char* title;
};

// The fields of which there is one each; phones and custom fields have numbered options.
constexpr std::array<FieldName, 12> kFieldNames{{
    {AddressField::Name, "--name", "name", "Name"},
    {AddressField::First, "--first", "first", "First name"},
    {AddressField::Company, "--company", "company", "Company"},
    {AddressField::NameYomi, "--name-yomi", "nameYomi", "Name reading"},
    {AddressField::FirstYomi, "--first-yomi", "firstYomi", "First name reading"},
    {AddressField::CompanyYomi, "--company-yomi", "companyYomi", "Company reading"},
    {AddressField::Title, "--title", "title", "Title"},
    {AddressField::Address, "--address", "address", "Address"},
    {AddressField::City, "--city", "city", "City"},
    {AddressField::State, "--state", "state", "State"},
    {AddressField::ZipCode, "--zip", "zip", "Zip code"},
    {AddressField::Country, "--country", "country", "Country"},
}};

// The module's text of that number, UTF-8.
std::string ModuleText(unsigned number);

// The index of a category by its name, as it is stored or shown.
// Fails:    CommandError, nothing found.
int CategoryIndex(CBaseTable& table, const std::string& name);

// The same, but a name that isn't there yet becomes a category.
// Fails:    CommandError where the table has no room or the name is too long.
int CategoryIndexOrNew(CBaseTable& table, const std::string& name);

// The name of a record's category as it is shown; empty where the manager doesn't know it.
std::string CategoryName(CBaseTable& table, const CBaseRecord& record);

// The same as it is stored, for other programs.
std::string StoredCategoryName(CBaseTable& table, const CBaseRecord& record);

// The name of a person or company as lists show it.
std::string FormattedName(CAddressRecord& record);

}  // namespace orvo::cli
