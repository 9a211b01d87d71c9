// The dates of one recurrence rule, on a clock on the wall.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include <exchange/calendar/WallTime.h>

namespace orvo {

// The part of a rule, such as COUNT; empty where it isn't there. A view into the rule.
std::string_view RulePart(std::string_view rule, std::string_view name);

// Gives the dates of a rule one after the other, in rising order. However the rule is made, that
// takes a bounded number of steps: where none of the dates to come is near, the rule is over. COUNT
// and UNTIL are the caller's.
class RuleDates {
public:
    // The rule is the value of an RRULE. Its dates are counted from `start`, which is the first of
    // them if it follows the rule; where it is a day, all of them are days.
    RuleDates(std::string_view rule, const WallTime& start);
    ~RuleDates();
    RuleDates(RuleDates&&) noexcept;

    // Returns:  nothing where there is none any more, where the rule can't be understood, or where
    //           it is of another calendar than the Gregorian one.
    std::optional<WallSeconds> Next();

private:
    class Walk;
    std::unique_ptr<Walk> m_walk;
};

}  // namespace orvo
