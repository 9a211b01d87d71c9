// The one ordering of addresses, and the sort keys that give the same order.
// SPDX-License-Identifier: MIT
#include <array>
#include <string_view>

#include <contracts/TextServices.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <platform/text/CodePage.h>
#include <platform/text/Collation.h>
#include <platform/text/SystemLocale.h>

namespace orvo {
namespace {

using enum AddressField;

template <std::size_t N>
using FieldOrder = std::array<AddressField, N>;

constexpr FieldOrder<3> kEnglishByName{Name, First, Company};
constexpr FieldOrder<3> kEnglishByCompany{Company, Name, First};
constexpr FieldOrder<6> kJapaneseByName{NameYomi, Name, FirstYomi, First, CompanyYomi, Company};
constexpr FieldOrder<6> kJapaneseByCompany{CompanyYomi, Company, NameYomi, Name, FirstYomi, First};

const FieldOrder<3>& EnglishOrder(long listBy) {
    return listBy == kListByCompany ? kEnglishByCompany : kEnglishByName;
}

const FieldOrder<6>& JapaneseOrder(long listBy) {
    return listBy == kListByCompany ? kJapaneseByCompany : kJapaneseByName;
}

// The next text of a record that isn't empty, without its leading white space. A text of blanks
// alone counts: it is handed out as an empty one.
template <std::size_t N>
bool TakeNextText(const CAddressRecord& record, const FieldOrder<N>& order, std::size_t& position,
                  CString& text) {
    for (; position < N; ++position) {
        text.Empty();
        record.Get(order[position], text);
        if (text.IsEmpty()) continue;
        RemoveLeadingSpacesEx(text);
        ++position;
        return true;
    }
    return false;
}

template <std::size_t N>
int CompareInOrder(long record1, long record2, const FieldOrder<N>& order) {
    const auto& left = *reinterpret_cast<const CAddressRecord*>(record1);
    const auto& right = *reinterpret_cast<const CAddressRecord*>(record2);
    // Kept from call to call for their buffers: a sort compares millions of times.
    thread_local CString leftText;
    thread_local CString rightText;
    std::size_t leftPosition = 0;
    std::size_t rightPosition = 0;
    for (;;) {
        const bool hasLeft = TakeNextText(left, order, leftPosition, leftText);
        const bool hasRight = TakeNextText(right, order, rightPosition, rightText);
        if (!hasLeft || !hasRight) return int{hasLeft} - int{hasRight};
        const int result = CompareStringA(LOCALE_SYSTEM_DEFAULT, SORT_STRINGSORT, leftText,
                                          leftText.GetLength(), rightText, rightText.GetLength()) -
                           CSTR_EQUAL;
        if (result != 0) return result;
    }
}

// True where the leading white space, the cuts and the code page can't change the text, so that its
// key can be made from the stored bytes.
bool IsPlain(std::string_view utf8) {
    constexpr std::size_t kNeverCut = 256;
    return utf8.size() <= kNeverCut && utf8.front() > ' ' &&
           utf8.find_first_of("\t\r") == std::string_view::npos;
}

}  // namespace

int AddrCompareFunc(long record1, long record2, long listBy) {
    return GetACP() == kJapaneseCodePage ? AddrCompareFuncJapanese(record1, record2, listBy)
                                         : AddrCompareFuncEnglish(record1, record2, listBy);
}

int AddrCompareFuncEnglish(long record1, long record2, long listBy) {
    return CompareInOrder(record1, record2, EnglishOrder(listBy));
}

int AddrCompareFuncJapanese(long record1, long record2, long listBy) {
    return CompareInOrder(record1, record2, JapaneseOrder(listBy));
}

AddrSortKeys::Form AddrSortKeys::SystemForm() {
    return GetACP() == kJapaneseCodePage ? Form::Japanese : Form::English;
}

AddrSortKeys::AddrSortKeys(Form form, long listBy) : m_keys(SORT_STRINGSORT) {
    const auto take = [this](const auto& order) { m_order.assign(order.begin(), order.end()); };
    if (form == Form::Japanese) {
        take(JapaneseOrder(listBy));
    } else {
        take(EnglishOrder(listBy));
    }
}

void AddrSortKeys::AppendPart(const CAddressRecord& record, std::size_t part, std::string& key) {
    const std::size_t deciding = m_order.size() * 2 / 3;
    const CodePage& page = CodePage::System();
    const bool isLossless = page.IsLossless();
    std::size_t filled = 0;
    for (const AddressField field : m_order) {
        const std::string_view stored = record.Utf8(field);
        if (stored.empty()) continue;
        const std::size_t partOfText = filled++ < deciding ? 0 : 1;
        if (partOfText > part) return;
        if (partOfText < part) continue;
        if (isLossless && IsPlain(stored)) {
            m_keys.Append(stored, key);
            continue;
        }
        CString text;
        record.Get(field, text);
        RemoveLeadingSpacesEx(text);
        std::string utf8;
        page.ToUtf8(text.View(), utf8);
        m_keys.Append(utf8, key);
    }
}

}  // namespace orvo
