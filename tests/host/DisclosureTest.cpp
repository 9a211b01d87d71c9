// What is told of private entries, on each way out and for each of the user's choices.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <host/Disclosure.h>
#include <host/Password.h>
#include <platform/settings/SettingsFixture.h>

namespace orvo {
namespace {

class DisclosureRules : public SettingsFixture {};

TEST_F(DisclosureRules, EachWayOutHasItsAnswerForEachChoice) {
    using enum Told;
    struct {
        WayOut way;
        Told shown, masked, hidden;
    } const rows[] = {
        {WayOut::View, Whole, Masked, Nothing},     {WayOut::Paper, Whole, Masked, Nothing},
        {WayOut::InfoTip, Whole, Nothing, Nothing}, {WayOut::Export, Whole, Nothing, Nothing},
        {WayOut::Mail, Whole, Nothing, Nothing},    {WayOut::Clipboard, Whole, Nothing, Nothing},
        {WayOut::Drag, Whole, Nothing, Nothing},    {WayOut::Duplicates, Whole, Nothing, Nothing},
        {WayOut::Trash, Whole, Nothing, Nothing},   {WayOut::Reminder, Whole, Masked, Masked},
        {WayOut::Change, Whole, Nothing, Nothing}};
    static_assert(std::size(rows) == kWaysOut);
    for (const auto& row : rows) {
        const int way = static_cast<int>(row.way);
        EXPECT_EQ(Disclosure(Privacy::Show).Of(row.way), row.shown) << way;
        EXPECT_EQ(Disclosure(Privacy::Mask).Of(row.way), row.masked) << way;
        EXPECT_EQ(Disclosure(Privacy::Hide).Of(row.way), row.hidden) << way;
        EXPECT_EQ(Disclosure(Privacy::Hide).Of(row.way, false), Whole) << way;
    }
}

TEST_F(DisclosureRules, WhatCountsIsTheOptionsUnlessAPasswordGuards) {
    struct {
        const char* why;
        bool isRequired, isSet, isGiven;
        Privacy want;
    } const rows[] = {{"no password", false, false, false, Privacy::Mask},
                      {"required, but there is none", true, false, false, Privacy::Mask},
                      {"there is one, but not required", false, true, false, Privacy::Mask},
                      {"it guards", true, true, false, Privacy::Hide},
                      {"it was given", true, true, true, Privacy::Mask}};
    for (const auto& row : rows) {
        ASSERT_TRUE(row.isSet ? SetPassword(TypedPassword("Khan")) : RemovePassword());
        COrvoDesktopOptions options;
        SetPrivacy(options, Privacy::Mask);
        options.SetPasswordRequired(row.isRequired);
        EXPECT_EQ(Disclosure(options, row.isGiven).InForce(), row.want) << row.why;
    }
}

TEST_F(DisclosureRules, TheStricterOfTwoHolds) {
    using enum Privacy;
    for (const Privacy one : {Show, Mask, Hide}) {
        for (const Privacy other : {Show, Mask, Hide}) {
            EXPECT_EQ(Disclosure(one).AtLeast(other).InForce(), std::max(one, other));
        }
    }
}

}  // namespace
}  // namespace orvo
