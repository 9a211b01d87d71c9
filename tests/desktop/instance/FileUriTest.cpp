// Which paths are taken from URIs of other programs.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <desktop/instance/FileUri.h>

namespace orvo::desktop {
namespace {

struct Row {
    const char* why;
    const char* in;
    const char* want;
};

constexpr Row kPaths[] = {
    {"plain", "file:///home/ann/a.vcf", "/home/ann/a.vcf"},
    {"by the machine's name for itself", "file://localhost/a.vcf", "/a.vcf"},
    {"escaped", "file:///a%20b%C3%BC%25.vcf", "/a b\u00fc%.vcf"},
    {"of another machine, so that it isn't taken for a file here", "file://host/a.vcf",
     "file://host/a.vcf"},
    {"no file", "https://example.org/a.vcf", "https://example.org/a.vcf"},
    {"a bare path", "/a%20b.vcf", "/a%20b.vcf"},
};

TEST(FileUri, GivesThePathOnlyOfFilesOfThisMachine) {
    for (const Row& row : kPaths) EXPECT_EQ(PathOfUri(row.in), row.want) << row.why;
}

}  // namespace
}  // namespace orvo::desktop
