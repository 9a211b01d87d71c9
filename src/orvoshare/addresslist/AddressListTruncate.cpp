// CDetailViewAddrList: names shortened to a width.
// SPDX-License-Identifier: MIT
#include <contracts/TextMeasure.h>
#include <contracts/TextServices.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/text/NameText.h>

namespace orvo {
namespace {

constexpr const char* kSeparator = ", ";
constexpr int kWithEllipsis = 1;

// What a name is made of, in the order in which it is written.
struct NameParts {
    CString leading;
    CString trailing;
};

NameParts PartsOf(const CAddressRecord& record, long listBy) {
    CString name;
    CString first;
    CString company;
    record.GetNameOnly(name);
    record.GetFirstOnly(first);
    record.GetCompanyOnly(company);
    for (CString* text : {&name, &first, &company}) RemoveLeadingSpacesEx(*text);

    if (name.IsEmpty()) {
        name = first;
        first.Empty();
    }
    if (listBy == kListByCompany && !company.IsEmpty()) return {company, name};
    if (name.IsEmpty()) return {company, {}};
    return {name, first};
}

// Shortens both to half of the room where both are longer, else the longer one to what the other
// leaves.
void ShareWidth(NameParts& parts, CDC& dc, int width) {
    const auto widthOf = [&dc](const CString& text) { return dc.GetTextExtent(text).cx; };
    const int separator = widthOf(kSeparator);
    const int leading = widthOf(parts.leading);
    const int trailing = widthOf(parts.trailing);
    const int half = (width - separator) / 2;
    if (leading > half && trailing > half) {
        TruncateText(parts.leading, dc, half, kWithEllipsis);
        TruncateText(parts.trailing, dc, half, kWithEllipsis);
    } else if (trailing > half) {
        TruncateText(parts.trailing, dc, width - leading - separator, kWithEllipsis);
    } else if (leading > half) {
        TruncateText(parts.leading, dc, width - trailing - separator, kWithEllipsis);
    }
}

}  // namespace

void CDetailViewAddrList::TruncateName(CString& text, CAddressRecord* record, CDC* dc, int width) {
    if (dc->GetTextExtent(text).cx <= width) return;
    NameParts parts = PartsOf(*record, m_nListBy);
    if (parts.leading.IsEmpty()) {
        text = OrvoShareText(kStringUnnamed);
        TruncateText(text, *dc, width, kWithEllipsis);
        return;
    }
    ShareWidth(parts, *dc, width);
    text = FullName(parts.trailing, parts.leading, true);
}

}  // namespace orvo
