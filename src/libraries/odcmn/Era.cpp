// The eras of the Japanese calendar.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <libraries/odcmn/Era.h>

namespace orvo {
namespace {

constexpr Era kEras[] = {
    {U"令和", U'R', {2019, 5, 1}},  {U"平成", U'H', {1989, 1, 8}}, {U"昭和", U'S', {1926, 12, 25}},
    {U"大正", U'T', {1912, 7, 30}}, {U"明治", U'M', {1868, 9, 8}},
};

}  // namespace

std::span<const Era> Eras() {
    return kEras;
}

const Era* EraOfDay(const CivilTime& day) {
    const Era* era = std::find_if(std::begin(kEras), std::end(kEras),
                                  [&](const Era& each) { return each.firstDay <= day; });
    return era == std::end(kEras) ? nullptr : era;
}

}  // namespace orvo
