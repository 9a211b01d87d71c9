// Any bytes are the text of a heading: they never show more than they hold, and what a list shows
// of them it saves so that it comes back.
// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/text/HeadingText.h>
#include <orvoshare/text/ListHeading.h>

using namespace orvo;

namespace {

// A list whose window stands as long as the process: making one takes longer than all the rest.
class FuzzedList : public CDetailViewAddrList {
public:
    FuzzedList() {
        Create(LVS_REPORT, {0, 0, 800, 400}, nullptr, 0);
        Initialize(&m_table, nullptr);
    }

    // What the list saves after a heading of that text; empty where it shows no column.
    CString TextShown(const CString& text) {
        for (const COrvoLVColumn& column : m_aColumns) HideColumn(column.nId);
        ShowHeading(*this, text);
        return HeadingOf(*this);
    }

private:
    MemoryEngine m_engine;
    CAddressTable m_table{m_engine};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzedList list;
    const CString text(std::string_view(reinterpret_cast<const char*>(data), size));

    const Heading heading = ParseHeading(text);
    if (2 * (heading.shown.size() + heading.hidden.size()) > size) std::abort();
    if (!heading.shown.empty() && ParseHeading(FormatHeading(heading)) != heading) std::abort();

    const CString saved = list.TextShown(text);
    if (!saved.IsEmpty() && list.TextShown(saved) != saved) std::abort();
    return 0;
}
