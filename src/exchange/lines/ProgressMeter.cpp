// How far an import has come in its file.
// SPDX-License-Identifier: MIT
#include <exchange/lines/ExchangeError.h>
#include <exchange/lines/ProgressMeter.h>

namespace orvo {
namespace {

constexpr std::size_t kStep = 4096;

}  // namespace

void ProgressMeter::Pass(std::string_view part) {
    const auto place = static_cast<std::size_t>(part.data() + part.size() - m_text.data());
    if (place < m_next) return;
    m_next = place + kStep;
    // The text may be longer or shorter than the file, which was in another encoding.
    const double share = static_cast<double>(place) / static_cast<double>(m_text.size());
    Tell(static_cast<std::size_t>(share * static_cast<double>(m_total)));
}

void ProgressMeter::Tell(std::size_t done) {
    if (m_tell && !m_tell(done, m_total)) throw ImportCancelled();
}

}  // namespace orvo
