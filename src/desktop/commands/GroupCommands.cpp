// Groups of people: who is in them, and who comes in and goes.
// SPDX-License-Identifier: MIT
#include <QInputDialog>
#include <algorithm>

#include <desktop/commands/GroupCommands.h>
#include <desktop/commands/Mail.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/ReadingTimes.h>
#include <people/PersonEdits.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {
namespace {

// So short, and so rare, that the details follow the selection meanwhile.
constexpr std::chrono::milliseconds kReadGroups{3};
constexpr std::chrono::milliseconds kBetweenReads{15};

}  // namespace

GroupCommands::GroupCommands(CommandContext& context) : m_context(context) {
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!m_context.Session().Groups().Read(kReadGroups)) return;
        m_timer.stop();
        if (m_read) m_read();
    });
}

bool GroupCommands::ReadNow() {
    if (m_context.Session().Groups().Read(kReadAtOnce)) return true;
    m_timer.start(kBetweenReads);
    return false;
}

bool GroupCommands::ReadOn() {
    if (m_context.Session().Groups().Read(std::chrono::milliseconds::zero())) return true;
    m_timer.start(kBetweenReads);
    return false;
}

std::vector<NamedGroup> GroupCommands::Groups() const {
    // What has changed since all were known.
    m_context.Session().Groups().Read(std::chrono::milliseconds::zero());
    const Disclosure disclosure(m_context.Options());
    std::vector<NamedGroup> groups;
    for (const auto& [id, group] : m_context.Session().Groups().Groups()) {
        if (disclosure.Of(WayOut::View, group.isPrivate) != Told::Whole) continue;
        groups.push_back({id, FromUtf8(group.name)});
    }
    std::stable_sort(groups.begin(), groups.end(),
                     [](const NamedGroup& left, const NamedGroup& right) {
                         return QString::localeAwareCompare(left.name, right.name) < 0;
                     });
    return groups;
}

void GroupCommands::Show(std::optional<std::int64_t> group) {
    if (!group && !m_shown) return;
    m_shown = group;
    RowFilter isMember;
    if (group) {
        isMember = [this, id = *group](const CBaseRecord& record) {
            GroupIndex& groups = m_context.Session().Groups();
            groups.Read(std::chrono::milliseconds::zero());
            return groups.IsMember(id, record.GetId());
        };
    }
    m_context.Frame().Addresses().SetFilter(std::move(isMember));
}

std::vector<CAddressRecord*> GroupCommands::Selected() {
    std::vector<CAddressRecord*> people;
    if (m_context.Frame().IsShowingToDos()) return people;
    for (CBaseRecord* record : m_context.Frame().Entries().SelectedRecords(WayOut::Change)) {
        people.push_back(static_cast<CAddressRecord*>(record));
    }
    if (people.empty()) m_context.SayMasked();
    return people;
}

void GroupCommands::FillMenu(QMenu& menu) {
    menu.clear();
    ReadNow();
    for (const NamedGroup& group : Groups()) {
        QString name = group.name;
        QAction* action = menu.addAction(name.replace('&', QLatin1String("&&")));
        connect(action, &QAction::triggered, action, [this, id = group.id] { AddSelectedTo(id); });
    }
    if (!menu.isEmpty()) menu.addSeparator();
    QAction* fresh = menu.addAction(Text("&New group..."));
    connect(fresh, &QAction::triggered, fresh, [this] { AddSelectedToNew(); });
}

void GroupCommands::Change(const QString& name, const std::function<long()>& change) {
    const std::string failure = m_context.Session().Change(name.toStdString(), change);
    // What was taken back is still in the view's records.
    m_context.Refresh();
    if (!failure.empty()) {
        m_context.Refuse(Text("Nothing was changed.") + "\n\n" + ProblemText(failure));
    }
}

// A list of mail addresses takes these, any other group the people themselves.
long GroupCommands::AddMembers(CAddressRecord& group, const std::vector<CAddressRecord*>& people) {
    CAddressTable& table = m_context.Session().Addresses();
    Person person;
    long status = ReadKeptPerson(group, person);
    PersonEdits edits;
    edits.becomesGroup = !person.isGroup;
    for (CAddressRecord* one : people) {
        if (status != 0) return status;
        DetailEdit edit;
        edit.isNew = true;
        edit.detail.kind = DetailKind::Member;
        if (person.isMailList) {
            const std::string mail = MailAddressOf(*one, table).toStdString();
            if (mail.empty()) continue;
            edit.detail.kind = DetailKind::Email;
            edit.detail.text = mail;
            edit.detail.uri = "mailto:" + mail;
        } else {
            bool isNew = false;
            status = TakeUid(*one, table, edit.detail.uri, isNew);
            const bool hasScheme = edit.detail.uri.find(':') != std::string::npos;
            if (!hasScheme) edit.detail.uri.insert(0, "urn:uuid:");
        }
        const bool isThere =
            std::any_of(person.details.begin(), person.details.end(), [&](const Detail& detail) {
                return detail.kind == DetailKind::Member && detail.uri == edit.detail.uri;
            });
        if (!isThere && one->GetId() != group.GetId()) edits.details.push_back(edit);
    }
    return status == 0 ? EditPerson(group, table, edits) : status;
}

long GroupCommands::TakeOut(CAddressRecord& group, const std::vector<CAddressRecord*>& people) {
    const GroupIndex& groups = m_context.Session().Groups();
    Person person;
    if (const long status = ReadKeptPerson(group, person); status != 0) return status;
    PersonEdits edits;
    for (const Detail& detail : person.details) {
        if (detail.kind != DetailKind::Member) continue;
        const std::optional<std::int64_t> member = groups.PersonOf(detail.uri);
        const bool goes = std::any_of(people.begin(), people.end(), [&](const CAddressRecord* one) {
            return member && one->GetId() == *member;
        });
        if (goes) edits.details.push_back({false, true, detail});
    }
    return EditPerson(group, m_context.Session().Addresses(), edits);
}

void GroupCommands::AddSelectedTo(std::int64_t group) {
    const std::vector<CAddressRecord*> people = Selected();
    if (people.empty()) return;
    Change(Text("Add to group"), [&] {
        CAddressTable& table = m_context.Session().Addresses();
        CAddressRecord record(table);
        const long status = table.Find(group, record);
        return status == 0 ? AddMembers(record, people) : status;
    });
}

void GroupCommands::AddSelectedToNew() {
    const std::vector<CAddressRecord*> people = Selected();
    if (people.empty()) return;
    const QString name =
        QInputDialog::getText(&m_context.Window(), Text("New group"), Text("Name of the group:"))
            .trimmed();
    if (name.isEmpty()) return;
    Change(Text("New group"), [&] {
        CAddressTable& table = m_context.Session().Addresses();
        CAddressRecord record(table);
        long status = record.SetUtf8(AddressField::Name, name.toStdString());
        if (status == 0) status = AddMembers(record, Selected());
        return status == 0 ? table.Add(record) : status;
    });
}

void GroupCommands::TakeSelectedOut() {
    const std::vector<CAddressRecord*> people = Selected();
    if (people.empty() || !m_shown) return;
    Change(Text("Take out of the group"), [&] {
        CAddressTable& table = m_context.Session().Addresses();
        CAddressRecord record(table);
        const long status = table.Find(*m_shown, record);
        return status == 0 ? TakeOut(record, people) : status;
    });
}

}  // namespace orvo::desktop
