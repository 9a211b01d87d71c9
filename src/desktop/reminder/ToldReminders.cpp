// Which reminders the user was told of on this machine.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <limits>
#include <sstream>

#include <fmt/format.h>

#include <desktop/reminder/ToldReminders.h>
#include <host/SettingText.h>
#include <orvoshare/shared/DataSetClaim.h>

namespace orvo::desktop {
namespace {

constexpr const char* kKey = "Told";
constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::min();
// They fit into what is read of a setting.
constexpr std::size_t kMostKept = 200;

}  // namespace

ToldReminders::ToldReminders(const std::string& store)
    : m_section("Reminders" + DataSetUser(store)), m_all(kNever) {
    Load();
}

void ToldReminders::Load() {
    m_moments.clear();
    std::istringstream words(SettingText(m_section.c_str(), kKey));
    if (!(words >> m_all)) m_all = kNever;
    std::int64_t id = 0;
    std::int64_t moment = 0;
    while (words >> id >> moment) m_moments[id] = moment;
}

bool ToldReminders::Keep() const {
    std::string text = fmt::format("{}", m_all);
    for (const auto& [id, moment] : m_moments) text += fmt::format(" {} {}", id, moment);
    return SetSettingText(m_section.c_str(), kKey, text);
}

std::int64_t ToldReminders::Of(std::int64_t id) const {
    const auto found = m_moments.find(id);
    return found == m_moments.end() ? m_all : std::max(found->second, m_all);
}

void ToldReminders::Set(std::int64_t id, std::int64_t moment) {
    m_moments[id] = moment;
    while (m_moments.size() > kMostKept) {
        const auto earliest =
            std::ranges::min_element(m_moments, {}, [](const auto& told) { return told.second; });
        m_all = std::max(m_all, earliest->second);
        m_moments.erase(earliest);
    }
}

}  // namespace orvo::desktop
