// What stands for a person beside the name.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <desktop/details/Face.h>
#include <platform/qt/QtConvert.h>
#include <platform/window/pictures/Contrast.h>

namespace orvo::desktop {
namespace {

TEST(FaceOfNames, ShowsWhoIsMeant) {
    const struct {
        const char* why;
        const char* given;
        const char* family;
        const char* company;
        FaceKind kind;
        const char* letters;
    } rows[] = {
        {"the first letters as the name is read", "ann", "lee", "Acme", FaceKind::Letters, "AL"},
        {"one name alone", "", "Åkesson", "", FaceKind::Letters, "Å"},
        {"no sign before a letter", "(Zoë)", "'t Hooft", "", FaceKind::Letters, "ZT"},
        {"kanji of the family name", "太郎", "山田", "", FaceKind::Letters, "山"},
        {"kana of the family name", "Jon", "アンダーソン", "", FaceKind::Letters, "ア"},
        {"a character beyond 16 bits", "", "𠮷野", "", FaceKind::Letters, "𠮷"},
        {"a company without a person", " ", "", "Acme", FaceKind::Company, ""},
        {"nobody", "", "-", "", FaceKind::Person, ""}};
    for (const auto& row : rows) {
        const Face face = FaceOf(row.given, row.family, row.company);
        EXPECT_EQ(face.kind, row.kind) << row.why;
        EXPECT_EQ(face.letters, row.letters) << row.why;
    }
}

TEST(FaceOfNames, HasLettersThatCanBeReadOnEachColour) {
    for (int colour = 0; colour < kFaceColours; ++colour) {
        for (const bool isDark : {false, true}) {
            const FaceColours colours = ColoursOf({FaceKind::Letters, "A", colour}, isDark);
            EXPECT_GE(Contrast(ColourFromQt(colours.ground), ColourFromQt(colours.letters)), 4.5)
                << colour << isDark;
        }
    }
}

}  // namespace
}  // namespace orvo::desktop
