// The rows of the list of addresses, as they are printed.
// SPDX-License-Identifier: MIT
#include <array>

#include <fmt/format.h>

#include <cli/AddressFields.h>
#include <cli/IdentityView.h>
#include <cli/ListColumns.h>
#include <cli/ListedAddresses.h>
#include <orvoshare/resources/StringTable.h>

namespace orvo::cli {
namespace {

// What the pictures of the icon modes show, by their index.
constexpr std::array<const char*, 3> kIconNames{"person", "building", "masked"};

const char* IconName(CDetailViewAddrList& list, int row) {
    const auto image = static_cast<std::size_t>(list.GetItemImage(row));
    return image < kIconNames.size() ? kIconNames[image] : "";
}

std::string Utf8Of(const CAddressRecord& record, AddressField field) {
    return std::string(record.Utf8(field));
}

Json CellsAsJson(CDetailViewAddrList& list, CAddressRecord& record) {
    Json cells = Json::object();
    for (const int id : list.GetShownColumns()) {
        const AddressCell cell = list.GetCell(&record, id);
        const bool isPicture = ColumnOf(list, id).bPictureCell != 0;
        cells[fmt::format("{}", id)] = isPicture ? Json(cell.picture != nullptr)  //
                                                 : Json(ToUtf8(cell.text));
    }
    return cells;
}

}  // namespace

std::vector<std::string> AddressHeadings(CDetailViewAddrList& list, bool showsIcons) {
    return showsIcons ? std::vector<std::string>{"Row", "ID", "Icon", "Label"}
                      : TableHeadings(list);
}

Json AddressAsJson(AddressView& view, bool showsIcons, int row) {
    CAddressRecord& record = view.RecordAt(row);
    Json json{{"row", row}, {"id", record.GetId()}};
    if (view.List().IsRowMasked(view.List().DV_GetItemData(row))) {
        json["private"] = true;
        json["masked"] = true;
        return json;
    }
    json["name"] = Utf8Of(record, AddressField::Name);
    json["first"] = Utf8Of(record, AddressField::First);
    json["company"] = Utf8Of(record, AddressField::Company);
    json["nameYomi"] = Utf8Of(record, AddressField::NameYomi);
    json["firstYomi"] = Utf8Of(record, AddressField::FirstYomi);
    json["companyYomi"] = Utf8Of(record, AddressField::CompanyYomi);
    json["formatted"] = FormattedName(record);
    json["category"] = StoredCategoryName(record.GetTable(), record);
    json["private"] = record.IsPrivate() != 0;
    AddIdentity(record, json);
    if (showsIcons) {
        json["icon"] = IconName(view.List(), row);
        json["label"] = ToUtf8(view.List().GetItemText(row, 0));
    } else {
        json["cells"] = CellsAsJson(view.List(), record);
    }
    return json;
}

std::vector<std::string> AddressAsCells(AddressView& view, bool showsIcons, int row) {
    CDetailViewAddrList& list = view.List();
    CAddressRecord& record = view.RecordAt(row);
    std::vector<std::string> cells{fmt::format("{}", row), fmt::format("{}", record.GetId())};
    if (showsIcons) {
        cells.emplace_back(IconName(list, row));
        cells.push_back(ToUtf8(list.GetItemText(row, 0)));
        return cells;
    }
    const bool isMasked = list.IsRowMasked(list.DV_GetItemData(row));
    for (const int id : list.GetShownColumns()) {
        if (isMasked) {
            cells.push_back(cells.size() == 2 ? ModuleText(kStringPrivate) : std::string());
            continue;
        }
        const AddressCell cell = list.GetCell(&record, id);
        cells.push_back(cell.picture != nullptr ? kPictureSign : ToUtf8(cell.text));
    }
    return cells;
}

}  // namespace orvo::cli
