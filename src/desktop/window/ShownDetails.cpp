// What the details pane shows of the views.
// SPDX-License-Identifier: MIT
#include <QDateTime>
#include <QLocale>
#include <QStringList>
#include <algorithm>

#include <contracts/Dates.h>
#include <desktop/commands/LinkCommands.h>
#include <desktop/details/ReminderWords.h>
#include <desktop/forms/DateField.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>
#include <desktop/window/ShownDetails.h>
#include <exchange/calendar/Recurrence.h>
#include <exchange/calendar/Reminders.h>
#include <host/RepeatWords.h>
#include <orvoshare/text/NameText.h>
#include <people/PersonReader.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {
namespace {

// A day at its very start or end stands for the day.
QString MomentText(long date) {
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(date);
    const QTime time = moment.time();
    const bool isDay = time == QTime(0, 0) || (time.hour() == 23 && time.minute() == 59);
    return isDay ? QLocale().toString(moment.date(), QLocale::ShortFormat)
                 : DateField::TextOf(date);
}

// The dates of a series that differ from the others: each with what it says.
std::vector<std::pair<QString, QString>> OtherDatesOf(const CToDoRecord& record) {
    std::vector<std::pair<QString, QString>> dates;
    ToDoText text;
    if (!record.IsRepeating() || ReadToDoText(record, text) != 0) return dates;
    for (const Override& other : OverridesOf(text)) {
        if (!other.date) continue;
        const QString description = FromUtf8(other.description);
        dates.emplace_back(
            MomentText(static_cast<long>(other.date->moment)),
            other.isCompleted ? Text("%1 (completed)").arg(description) : description);
    }
    return dates;
}

// In words; none where they can't be read.
QStringList RemindersOf(const CToDoRecord& record) {
    QStringList words;
    ToDoText text;
    if (!record.HasReminders() || ReadToDoText(record, text) != 0) return words;
    for (const ToDoReminder& reminder : ReadReminders(text)) words += ReminderWords(reminder.time);
    return words;
}

}  // namespace

void ShownDetails::PutInto(QMainWindow& window) {
    m_pane.PutInto(window, [this](const QUrl& link) { FollowLink(m_context, link); });
    m_pane.SetShownListener([this] { Show(); });
    m_panel =
        new PartPanel(m_parts.Parts(), {[] {}, [this](std::int64_t id) { m_forms.OpenToDo(id); }});
    m_pane.Add(m_panel);
}

QList<QAction*> ShownDetails::Actions() {
    QAction* shown = m_pane.ShowAction();
    shown->setText(Text("De&tails"));
    shown->setShortcut(QKeySequence("F9"));
    m_below = new QAction(Text("Details &below"), &m_context.Window());
    m_below->setCheckable(true);
    QObject::connect(m_below, &QAction::triggered, m_below,
                     [this](bool isBelow) { m_pane.PutBelow(isBelow); });
    return {shown, m_below};
}

void ShownDetails::Show() {
    if (!m_pane.IsShown()) return;
    if (m_below) m_below->setChecked(m_pane.IsBelow());
    ShownEntries& entries = m_context.Frame().Entries();
    if (entries.SelectedCount() != 1) {
        ShowParts(0);
        m_pane.Show(Text("Select one entry to see all that is known of it."));
        return;
    }
    const std::vector<CBaseRecord*> records = entries.SelectedRecords(WayOut::View);
    const auto* toDo =
        records.empty() ? nullptr : dynamic_cast<const CToDoRecord*>(records.front());
    ShowParts(toDo ? toDo->GetId() : 0);
    if (records.empty()) {
        m_pane.Show(Text("Private entry"));
    } else if (auto* address = dynamic_cast<CAddressRecord*>(records.front())) {
        ShowAddress(*address);
    } else if (toDo) {
        ShowToDo(*toDo);
    }
}

QString ShownDetails::CategoryOf(const CBaseRecord& record) const {
    int index = kNoCategory;
    record.GetCategoryId(index);
    CCategory* category = nullptr;
    record.GetTable().GetCategoryManager()->FindIndex(index, category);
    return category && index != kNoCategory ? FromUtf8(category->ShownUtf8()) : QString();
}

void ShownDetails::ShowAddress(CAddressRecord& record) {
    CAddressTable& table = m_context.Session().Addresses();
    PageOfPerson page;
    std::string loss;
    page.person = ReadPerson(record, table, loss);
    CString name;
    FormatName(&record, name);
    page.name = ToQt(name.View());
    page.face = FaceOf(record);
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        long label = 0;
        record.GetPhoneLabelID(slot, label);
        page.labels.push_back(ToQt(table.GetPhoneLabel(label).View()));
    }
    for (int number = 1; number <= kCustomFields; ++number) {
        const QString text = FromUtf8(record.Utf8(CustomField(number)));
        if (text.isEmpty()) continue;
        page.ownFields.emplace_back(ToQt(table.GetCustomLabel(number).View()), text);
    }
    // The page comes again once the groups are known.
    if (m_groups.ReadOn()) {
        AddMembers(page);
        AddGroups(record.GetId(), page);
    }
    page.mapAddress = MapAddress();
    page.category = CategoryOf(record);
    page.isPrivate = record.IsPrivate() != 0;
    m_pane.Show(page);
    if (!loss.empty()) m_context.ReportProblem(loss);
}

void ShownDetails::AddMembers(PageOfPerson& page) const {
    constexpr std::size_t kMostMembers = 500;  // more than anybody reads
    CAddressTable& table = m_context.Session().Addresses();
    const Disclosure disclosure(m_context.Options());
    for (const Detail& detail : page.person.details) {
        if (detail.kind != DetailKind::Member || page.members.size() == kMostMembers) continue;
        const auto id = m_context.Session().Groups().PersonOf(detail.uri);
        CAddressRecord member(table);
        if (!id || table.Find(*id, member) != 0) continue;
        if (disclosure.Of(WayOut::View, member) != Told::Whole) continue;
        CString name;
        FormatName(&member, name);
        page.members.emplace(detail.line, EntryLink{ToQt(name.View()), *id});
    }
}

void ShownDetails::AddGroups(std::int64_t person, PageOfPerson& page) const {
    const std::vector<std::int64_t> ids = m_context.Session().Groups().GroupsOf(person);
    for (const NamedGroup& group : m_groups.Groups()) {
        const bool isIn = std::find(ids.begin(), ids.end(), group.id) != ids.end();
        if (isIn) page.groups.push_back({group.name, group.id});
    }
}

// Of none for 0.
void ShownDetails::ShowParts(std::int64_t toDo) {
    toDo == 0 ? m_panel->Leave() : m_panel->Show(toDo);
    m_panel->setVisible(toDo != 0);
}

void ShownDetails::ShowToDo(const CToDoRecord& record) {
    PageOfPerson page;
    page.name = FromUtf8(record.DescriptionUtf8());
    record.GetNoteUtf8(page.person.note);
    const auto add = [&page](const QString& label, const QString& text) {
        page.ownFields.emplace_back(label, text);
    };
    const auto addDate = [&add](const char* label, long date) {
        if (date != kMaxDate) add(Text(label), MomentText(date));
    };
    long date = kMaxDate;
    record.GetStartDate(date);
    addDate(Untranslated("Starts on"), date);
    date = kMaxDate;
    record.GetDueDate(date);
    addDate(Untranslated("Due on"), date);
    if (record.IsRepeating()) add(Text("Repeats"), FromUtf8(RepeatWordsOf(record)));
    for (const auto& [day, what] : OtherDatesOf(record)) add(day, what);
    int priority = 0;
    record.GetPriority(priority);
    add(Text("Priority"), QLocale().toString(priority));
    if (record.IsCompleted() != 0) {
        date = kMaxDate;
        record.GetCompletionDate(date);
        add(Text("Completed"), date == kMaxDate ? Text("yes") : MomentText(date));
    } else if (record.GetPercent() != 0) {
        add(Text("Completed"), Text("%1 %").arg(QLocale().toString(record.GetPercent())));
    }
    for (const QString& words : RemindersOf(record)) add(Text("Reminder"), words);
    page.whole = WholeOf(record);
    page.category = CategoryOf(record);
    page.isPrivate = record.IsPrivate() != 0;
    m_pane.Show(page);
}

// Nothing where there is none that may be seen.
std::optional<EntryLink> ShownDetails::WholeOf(const CToDoRecord& record) const {
    if (record.ParentUid().empty()) return std::nullopt;
    CToDoTable& table = m_context.Session().ToDos();
    const std::int64_t id = m_context.Session().Parts().ParentOf(record.GetId());
    CToDoRecord whole(table);
    if (id == 0 || table.Find(id, whole) != 0) return std::nullopt;
    const Disclosure disclosure(m_context.Options());
    if (disclosure.Of(WayOut::View, whole) != Told::Whole) return std::nullopt;
    return EntryLink{EntryName(whole), id};
}

}  // namespace orvo::desktop
