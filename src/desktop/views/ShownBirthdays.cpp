// Birthdays and anniversaries in the order of the days to come.
// SPDX-License-Identifier: MIT
#include <QVBoxLayout>
#include <algorithm>
#include <tuple>
#include <utility>

#include <desktop/texts/Texts.h>
#include <desktop/views/ReadingTimes.h>
#include <desktop/views/ShownBirthdays.h>
#include <people/FindReader.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/window/base/WindowInput.h>

namespace orvo::desktop {
namespace {

using Clock = std::chrono::steady_clock;

constexpr UINT kBirthdaysId = 5;

// Between two reports of how much is read.
constexpr std::chrono::milliseconds kReportInterval{100};

}  // namespace

bool ShownBirthdays::Create(CWnd& parent, std::function<void()> opened) {
    if (!m_window.Create(WS_CHILD, {}, &parent, kBirthdaysId)) return false;
    QWidget* around = QtWindowSystem::WidgetOf(&m_window);
    if (!around) return false;
    m_list = new DayList(
        {[this] {
             ForgetRecords();
             TellChanged();
         },
         std::move(opened),
         [this](bool hasFocus) { NoteFocus(hasFocus ? m_window.GetSafeHwnd() : nullptr); }});
    m_list->setAccessibleName(Name());
    auto* whole = new QVBoxLayout(around);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_list);
    around->setFocusProxy(m_list);
    m_window.ShowWindow(0);
    return true;
}

QString ShownBirthdays::Name() const {
    return Text("Birthdays");
}

QString ShownBirthdays::CountedText(int count) const {
    return CountText("%1 birthday or anniversary", "%1 birthdays and anniversaries", count);
}

EntryFile ShownBirthdays::File() const {
    return {Text("Calendars") + "|*.ics||", "ics"};
}

int ShownBirthdays::RowCount() {
    return static_cast<int>(m_list->Rows().Days().size());
}

int ShownBirthdays::SelectedCount() {
    return static_cast<int>(m_list->SelectedIds().size());
}

int ShownBirthdays::HiddenCount() {
    if (Disclosure(m_options).Hides() == 0) return 0;
    const auto& people = m_session.Days().People();
    return static_cast<int>(
        std::ranges::count_if(people, [](const auto& each) { return each.second.isPrivate; }));
}

bool ShownBirthdays::IsEmpty() {
    return m_session.Days().IsRead() && m_session.Days().People().empty();
}

void ShownBirthdays::Collect() {
    const Disclosure disclosure(m_options);
    m_isIndexShown = m_session.Days().IsRead();
    m_today = Today();
    m_all.clear();
    struct Place {
        ListedDay day;
        const std::string* key;
    };
    std::vector<Place> places;
    for (const auto& [id, person] : m_session.Days().People()) {
        const Told told = disclosure.Of(WayOut::View, person.isPrivate);
        const bool isOther = Category() != kAllCategories && Category() != person.category;
        if (told == Told::Nothing || isOther) continue;
        for (const YearlyDay& day : person.found.days) {
            const bool isMasked = told == Told::Masked;
            places.push_back({{id, day, isMasked ? QString() : FromUtf8(person.name),
                               NextDay(day.date, m_today), isMasked},
                              &person.key});
        }
    }
    std::ranges::stable_sort(places, [](const Place& left, const Place& right) {
        return std::tie(left.day.next, *left.key) < std::tie(right.day.next, *right.key);
    });
    m_all.reserve(places.size());
    for (Place& place : places) m_all.push_back(std::move(place.day));
}

void ShownBirthdays::Narrow() {
    ForgetRecords();
    CountFill();
    m_unread.clear();
    if (!IsFinding()) return m_list->Show(m_all, m_today);
    const FindIndex& texts = m_session.FindTexts(TableKind::Address);
    const std::vector<bool> matching = texts.Matching(m_query);
    std::vector<ListedDay> found;
    for (const ListedDay& day : m_all) {
        if (day.isMasked) continue;
        const std::optional<FindIndex::Slot> slot = texts.SlotOf(day.id);
        if (!slot) m_unread.push_back(day.id);
        if (slot && matching[*slot]) found.push_back(day);
    }
    m_list->Show(std::move(found), m_today);
}

void ShownBirthdays::SetFind(const FindQuery& query) {
    m_query = query;
    // One that isn't shown is filled when it is.
    if (m_window.IsWindowVisible() == 0) return;
    Narrow();
    TellChanged();
}

bool ShownBirthdays::IsWhole() const {
    return m_isIndexShown && m_session.Days().IsRead() && m_unread.empty();
}

std::optional<int> ShownBirthdays::PercentRead() const {
    const DayIndex& days = m_session.Days();
    return days.IsRead() ? std::nullopt : std::optional(days.Percent());
}

void ShownBirthdays::ReadTexts() {
    const Clock::time_point end = Clock::now() + kReadInAMoment;
    FindIndex& texts = m_session.FindTexts(TableKind::Address);
    while (!m_unread.empty() && Clock::now() < end) {
        const std::int64_t id = m_unread.back();
        m_unread.pop_back();
        CAddressRecord record(Table());
        if (texts.SlotOf(id)) continue;
        const bool isThere = Table().Find(id, record) == 0;
        texts.Add(id, isThere ? FindTextOf(record) : FindText());
    }
    if (m_unread.empty()) Narrow();
}

void ShownBirthdays::ReadOn() {
    if (m_window.IsWindowVisible() == 0) return;
    DayIndex& days = m_session.Days();
    if (!days.IsRead() || !m_isIndexShown) {
        days.Read(kReadInAMoment);
        if (days.IsRead()) return Refill();
    } else if (!m_unread.empty()) {
        ReadTexts();
    }
    if (!IsWhole() && Clock::now() < m_told + kReportInterval) return;
    m_told = Clock::now();
    TellChanged();
}

void ShownBirthdays::Refill() {
    m_session.Days().Read(kReadAtOnce);
    Collect();
    Narrow();
    TellChanged();
}

void ShownBirthdays::Enter(bool) {
    m_session.Days().Read(kReadAtOnce);
    Collect();
    Narrow();
    m_window.ShowWindow(1);
}

void ShownBirthdays::Leave() {
    m_window.ShowWindow(0);
    m_list->Empty();
    m_all.clear();
    ForgetRecords();
}

std::vector<CBaseRecord*> ShownBirthdays::SelectedRecords(WayOut way) {
    const Disclosure disclosure(m_options);
    std::vector<CBaseRecord*> records;
    for (const std::int64_t id : m_list->SelectedIds()) {
        std::unique_ptr<CAddressRecord>& record = m_records[id];
        if (!record) {
            record = std::make_unique<CAddressRecord>(Table());
            if (Table().Find(id, *record) != 0 || record->IsDeleted() != 0) record.reset();
        }
        if (record && disclosure.Of(way, *record) == Told::Whole) records.push_back(record.get());
    }
    return records;
}

void ShownBirthdays::SelectRecord(std::int64_t id) {
    m_list->SelectId(id);
    TellChanged();
}

void ShownBirthdays::SelectAll() {
    m_list->selectAll();
    m_list->setFocus();
}

void ShownBirthdays::GoToFirst() {
    m_list->SelectFirst();
    m_list->setFocus();
}

bool ShownBirthdays::FocusPlace(CRect& place) {
    const QRect row = m_list->FocusPlace();
    place = {row.left(), row.top(), row.right(), row.bottom()};
    return !row.isEmpty();
}

}  // namespace orvo::desktop
