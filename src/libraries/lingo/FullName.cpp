// A person's name in one line, in the order of the system's language.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string_view>

#include <contracts/TextServices.h>
#include <platform/text/SystemLocale.h>

namespace orvo {

namespace {

// The languages whose own CLDR data count them among the languages of surnameFirst.
constexpr std::string_view kSurnameFirst[] = {"hu", "ja", "km", "ko",  "mn", "si",
                                              "ta", "te", "vi", "yue", "zh"};

bool IsSurnameFirst() {
    const std::string& language = SystemLocale::Language();
    return std::find(std::begin(kSurnameFirst), std::end(kSurnameFirst), language) !=
           std::end(kSurnameFirst);
}

CString Join(const CString& left, const char* separator, const CString& right) {
    if (left.IsEmpty()) return right;
    if (right.IsEmpty()) return left;
    return left + separator + right;
}

}  // namespace

CString FullName(const CString& first, const CString& name, bool listForm) {
    if (IsSurnameFirst()) return Join(name, " ", first);
    return listForm ? Join(name, ", ", first) : Join(first, " ", name);
}

}  // namespace orvo
