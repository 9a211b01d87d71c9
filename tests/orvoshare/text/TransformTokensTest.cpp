// Replacing delimited tokens.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gtest/gtest.h>

#include <orvoshare/text/TransformTokens.h>

namespace orvo {
namespace {

// Notes each token and replaces all but "keep", which leaves the replacement as it is.
int NoteToken(const char* token, CString& replacement, long data) {
    CString& tokens = *reinterpret_cast<CString*>(data);
    tokens += CString("[") + token + "]";
    if (CString(token) == "keep") return 0;
    replacement = CString("=") + token;
    return 0;
}

TEST(TransformTokens, ReplacesEachTokenAndTellsOfAnUnfinishedOne) {
    constexpr std::tuple<const char*, const char*, char, char, const char*, const char*, int>
        kRows[] = {
            {"a token in the middle", "a<b>c", '<', '>', "a=bc", "[b]", 1},
            {"no token", "plain > text", '<', '>', "plain > text", "", 1},
            {"an empty text", "", '<', '>', "", "", 1},
            {"an empty token", "<>x", '<', '>', "=x", "[]", 1},
            {"the text ends inside a token", "ab<cd", '<', '>', "ab", "", 0},
            {"what was finished stays", "<a>b<c", '<', '>', "=ab", "[a]", 0},
            {"one that isn't touched comes again", "<x>,<keep>", '<', '>', "=x,=x", "[x][keep]", 1},
            {"at the first token it is empty", "<keep>.", '<', '>', ".", "[keep]", 1},
            {"tokens don't nest", "<a<b>c>", '<', '>', "=a<bc>", "[a<b]", 1},
            {"the same byte opens and closes", "%a%b%c%", '%', '%', "=ab=c", "[a][c]", 1},
            {"a lead byte is as any other", "\x95<b>", '<', '>', "\x95=b", "[b]", 1},
        };
    for (const auto& [why, in, open, close, wantOutput, wantTokens, want] : kRows) {
        CString output("old");
        CString tokens;
        const int result =
            TransformTokens(in, open, close, output, NoteToken, reinterpret_cast<long>(&tokens));
        EXPECT_EQ(result, want) << why;
        EXPECT_EQ(output, wantOutput) << why;
        EXPECT_EQ(tokens, wantTokens) << why;
    }
}

}  // namespace
}  // namespace orvo
