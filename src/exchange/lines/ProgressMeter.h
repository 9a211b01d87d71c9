// How far an import has come in its file.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <exchange/lines/ImportReport.h>

namespace orvo {

class ProgressMeter {
public:
    // `text` is what is read, of a file of `total` bytes; it outlives the meter, as does `tell`.
    ProgressMeter(std::string_view text, std::size_t total, const ImportProgress& tell)
        : m_text(text), m_total(total), m_tell(tell) {}

    // This part of the text is done.
    // Fails:    ImportCancelled.
    void Pass(std::string_view part);
    void Finish() { Tell(m_total); }

private:
    void Tell(std::size_t done);

    std::string_view m_text;
    std::size_t m_total;
    const ImportProgress& m_tell;
    std::size_t m_next = 0;  // the place in the text at which the next call is due
};

}  // namespace orvo
