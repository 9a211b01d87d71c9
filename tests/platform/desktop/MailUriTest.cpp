// What of a message reaches a composer, and that it can do no harm on its way.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gtest/gtest.h>

#include <platform/desktop/MailUri.h>

namespace orvo {
namespace {

constexpr std::tuple<const char*, const char*, const char*> kAddresses[] = {
    {"an address stays as it is", "ann@example.org", "ann@example.org"},
    {"signs that a local part may have", "o'lee+$`!x@example.org", "o'lee+$`!x@example.org"},
    {"the name of the protocol isn't part of it", "smtp:ann@example.org", "ann@example.org"},
    {"no line end can begin a field", "ann@example.org\r\nBcc: x@y", ""},
    {"a control character is dropped", "a\x7Fnn\n@example.org", "ann@example.org"},
    {"two people", "a@example.org,b@example.org", ""},
    {"two people, parted by a semicolon", "a@example.org;b@example.org", ""},
    {"a name with it", "Ann <ann@example.org>", ""},
    {"no person", "@example.org", ""},
    {"no place", "ann@", ""},
    {"no address", "Ann", ""},
    {"nothing", "", ""},
};

TEST(MailUri, AnAddressNamesOnePersonOrNobody) {
    for (const auto& [why, in, want] : kAddresses) EXPECT_EQ(PlainMailAddress(in), want) << why;
}

TEST(MailUri, EachPartHasItsPlaceAndEmptyOnesHaveNone) {
    const std::tuple<const char*, MailDraft, const char*> rows[] = {
        {"nothing at all", {}, "mailto:"},
        {"recipients alone", {{"a@x.org", "b@y.org"}, "", "", {}}, "mailto:a@x.org,b@y.org"},
        {"a subject alone", {{}, "Hi", "", {}}, "mailto:?subject=Hi"},
        {"signs that part the address",
         {{"a?&b@x.org"}, "?&=#%", "a+b", {}},
         "mailto:a%3F%26b@x.org?subject=%3F%26%3D%23%25&body=a%2Bb"},
        {"a line end and a tab in the subject",
         {{}, "a\r\nb\tc", "", {}},
         "mailto:?subject=a%20%20b%20c"},
        {"each kind of line end in the body",
         {{}, "", "1\r\n2\n3\r4\n\n5", {}},
         "mailto:?body=1%0D%0A2%0D%0A3%0D%0A4%0D%0A%0D%0A5"},
        {"a tab and another control character in the body",
         {{}, "", "a\tb\x1B", {}},
         "mailto:?body=a%09b%20"},
        {"files", {{}, "", "", {"/a b/c", "/d"}}, "mailto:?attach=/a%20b/c&attach=/d"},
        {"letters of UTF-8", {{}, "\xC3\xA9", "", {}}, "mailto:?subject=%C3%A9"},
    };
    for (const auto& [why, draft, want] : rows) EXPECT_EQ(MailUri(draft), want) << why;
}

TEST(MailUri, NoByteOfAnyTextIsLeftForAShell) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);

    const std::string uri = MailUri({{all}, all, all, {all}});

    EXPECT_EQ(uri.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                    "%/:?&=@,.-_~"),
              std::string::npos);
}

}  // namespace
}  // namespace orvo
