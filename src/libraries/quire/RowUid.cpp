// UIDs of rows.
// SPDX-License-Identifier: MIT
#include <array>
#include <random>
#include <sys/random.h>

#include <fmt/format.h>

#include <contracts/RowIdentity.h>
#include <platform/time/CTime.h>

namespace orvo {

namespace {

constexpr std::string_view kUuidScheme = "urn:uuid:";

char SmallLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string NewUid() {
    std::array<std::uint64_t, 2> random{};
    if (getrandom(random.data(), sizeof random, 0) != ssize_t{sizeof random}) {
        std::random_device device;
        for (std::uint64_t& part : random) part = std::uint64_t{device()} << 32 | device();
    }
    const auto now = static_cast<std::uint64_t>(CTime::GetCurrentMilliseconds());
    return fmt::format("{:08x}-{:04x}-{:04x}-{:04x}-{:012x}", (now >> 16) & 0xFFFFFFFF,
                       now & 0xFFFF, 0x7000 | (random[0] & 0x0FFF),
                       0x8000 | ((random[0] >> 16) & 0x3FFF), random[1] & 0xFFFF'FFFF'FFFF);
}

std::string PlainUid(std::string_view uid) {
    std::string plain(uid);
    for (char& c : plain) c = SmallLetter(c);
    if (plain.starts_with(kUuidScheme)) plain.erase(0, kUuidScheme.size());
    return plain;
}

}  // namespace orvo
