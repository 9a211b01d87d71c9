// What the user looks for in a view, whose rows are those that were found.
// SPDX-License-Identifier: MIT
#include <utility>

#include <desktop/views/ReadingTimes.h>
#include <desktop/views/RowKeeper.h>
#include <desktop/views/ShownFind.h>
#include <host/Disclosure.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
ShownFind::ShownFind(ExchangeableRows& view, const COrvoDesktopOptions& options,
                     Listeners listeners)
    : m_view(view), m_options(options), m_listeners(std::move(listeners)) {}

ListPeer& ShownFind::Rows() {
    return dynamic_cast<ListPeer&>(*m_view.Window().GetPeer());
}

void ShownFind::Set(const FindQuery& query) {
    m_query = query;
    // One that isn't shown is filled when it is.
    if (m_view.Window().IsWindowVisible() == 0) return;
    Mark();
    if (m_found && !m_found->AreIn(Rows())) return m_listeners.refill();
    const RowKeeper rows(m_view.Window(),
                         [this](DWORD data) { return m_view.RecordOf(data)->GetId(); });
    if (Choose()) {
        Show();
        rows.Restore(m_view.Window());
    }
    if (!IsOn()) Drop();
    m_listeners.changed();
}

void ShownFind::SetFilter(RowFilter filter) {
    m_filter = std::move(filter);
    Set(m_query);
}

void ShownFind::ReadOn() {
    if (!m_found) return;
    if (!m_found->AreIn(Rows())) return m_listeners.refill();
    m_found->Read(kReadInAMoment);
    if (m_found->IsRead()) Set(m_query);
}

int ShownFind::CountOfAll() {
    return m_found ? m_found->Count() : Rows().RowCount();
}

void ShownFind::Filled() {
    Mark();
    if (IsOn() && Choose()) Show();
}

void ShownFind::Mark() {
    if (!IsOn()) return Rows().SetTextMarks({});
    Rows().SetTextMarks([query = m_query](std::string_view text) {
        const std::string utf8 = ToUtf8(CString(text));
        const auto place = [&](std::size_t byte) {
            return static_cast<std::size_t>(SystemText(utf8.substr(0, byte)).GetLength());
        };
        std::vector<TextMark> marks;
        for (const TextRange& range : query.RangesIn(utf8)) {
            marks.push_back({place(range.begin), place(range.end)});
        }
        return marks;
    });
}

// Returns true where the view doesn't show what is found yet.
bool ShownFind::Choose() {
    if (!m_found && !IsOn()) return false;
    if (!m_found) {
        m_found = std::make_unique<FoundRows>(
            m_view.Texts(), Rows(),
            FoundRows::Entries{[this](DWORD data) { return m_view.RecordOf(data); },
                               [this](DWORD data) { return m_view.TextOf(data); },
                               Disclosure(m_options).Masks() != 0});
    }
    if (IsLooking()) m_found->Read(kReadAtOnce);
    return m_found->Find(m_query, m_filter);
}

void ShownFind::Show() {
    const std::vector<DWORD> shown = m_found->Shown();
    CWnd& window = m_view.Window();
    window.SetRedraw(0);
    // Records that go with their rows would be freed.
    ListPeer& rows = Rows();
    for (int row = 0; row < rows.RowCount(); ++row) rows.SetData(row, 0);
    m_view.Empty();
    rows.ReserveRows(static_cast<int>(shown.size()));
    for (const DWORD data : shown) m_view.Append(data);
    window.SetRedraw(1);
    window.Invalidate();
}

}  // namespace orvo::desktop
