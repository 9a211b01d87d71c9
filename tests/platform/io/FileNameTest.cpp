// Names of files that are made from texts of others.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gtest/gtest.h>

#include <platform/io/FileName.h>

namespace orvo {
namespace {

// So many characters of three bytes.
std::string Wide(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "山";
    return text;
}

TEST(FileName, ANameSaysNothingToAShellAnAddressOrAMailProgram) {
    const std::tuple<const char*, std::string, std::string> rows[] = {
        {"a plain name", "Ann Lee-Day_2.vcf", "Ann Lee-Day_2.vcf"},
        {"letters and marks of any script", "山田 太郎 नमस्ते é١٢.vcf", "山田 太郎 नमस्ते é١٢.vcf"},
        {"a wide blank", "山田　太郎", "山田 太郎"},
        {"fields of a composer", "Bob',bcc='evil@x.org',body='hi.vcf",
         "Bob_bcc_evil_x.org_body_hi.vcf"},
        {"signs of a shell", "$(id)`&|;<>*?~!#{}[]\"\\.vcf", "_id_.vcf"},
        {"signs of an address", "a%41&b=c?d+e:f@g,h", "a_41_b_c_d_e_f_g_h"},
        {"a path", "/etc/passwd", "_etc_passwd"},
        {"a way up", "../../x", "_.._x"},
        {"controls", "a\nb\t\x7F\x1B[0m", "a_b_0m"},
        {"what turns the direction vanishes", "a\u202Efcv.exe\u200B", "afcv.exe"},
        {"no text at all", "a\xFF\xC3(b", "a_b"},
        {"a hidden file", "..hidden", "hidden"},
        {"an option", " --help", "help"},
        {"a point at the end", "name. .", "name"},
        {"nothing", "", "_"},
        {"nothing but points", "...", "_"},
        {"currency, quotation and symbols", "€«x»☺", "_x_"},
        {"too long", std::string(300, 'x') + ".vcf", std::string(116, 'x') + ".vcf"},
        {"no character is cut", "a" + Wide(50), "a" + Wide(39)},
    };
    for (const auto& [why, in, want] : rows) EXPECT_EQ(PlainFileName(in), want) << why;
}

TEST(FileName, APathIsPlainWhereAllOfItsNamesAre) {
    for (const char* path : {"/home/ann/é 1.vcf", "/tmp/a-b_c/x", "name"}) {
        EXPECT_TRUE(IsPlainPath(path)) << path;
    }
    for (const char* path : {"/a,b/x", "/a/x'y", "/a/-x", "-x", "/a/\xFF", "/a\u202E/x", "/a\n"}) {
        EXPECT_FALSE(IsPlainPath(path)) << path;
    }
}

}  // namespace
}  // namespace orvo
