// To-dos and their parts: what the details pane does to them, and the list of only one of them.
// SPDX-License-Identifier: MIT
#include <memory>
#include <unordered_set>

#include <desktop/commands/PartCommands.h>
#include <desktop/parts/PartQuestions.h>
#include <desktop/parts/WholeChoice.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

PartsContext MakePartsContext(const CommandContext& context) {
    return {context.Session().ToDos(),
            [&context]() -> TodoParts& { return context.Session().Parts(); },
            [&context](WayOut way, const CToDoRecord& record) {
                return Disclosure(context.Options()).Of(way, record);
            },
            [&context] { return context.Options().GetTodoMarkCompletionDate() != 0; },
            [&context](const QString& name, const std::function<long()>& change) {
                return context.Session().Change(name.toStdString(), change);
            }};
}

PartCommands::PartCommands(CommandContext& context)
    : m_context(context), m_parts(MakePartsContext(context)) {}

bool PartCommands::MayComplete(const CToDoRecord& record) const {
    const PartEdits edits(m_parts);
    const std::int64_t id = record.GetId();
    const std::vector<std::int64_t> open = edits.OpenPartsOf(id);
    if (open.empty()) return true;
    const PartsAnswer answer =
        AskAboutOpenParts(&m_context.Window(), static_cast<int>(open.size()));
    if (answer != PartsAnswer::All) return answer == PartsAnswer::OnlyThis;
    const std::string failure = edits.SetCompleted(id, true, open);
    if (!failure.empty()) {
        m_context.Refuse(Text("Nothing was changed.") + "\n\n" + ProblemText(failure));
    }
    return false;
}

std::vector<std::int64_t> PartCommands::Selected() const {
    std::vector<std::int64_t> ids;
    for (const CBaseRecord* record : m_context.Frame().ToDos().SelectedRecords(WayOut::Change)) {
        ids.push_back(record->GetId());
    }
    if (ids.empty()) m_context.SayMasked();
    return ids;
}

void PartCommands::PutSelected() {
    const std::vector<std::int64_t> ids = Selected();
    if (ids.empty()) return;
    const std::optional<std::int64_t> whole = ChooseWhole(&m_context.Window(), m_parts, ids);
    if (whole) Put(Text("Make part of another"), ids, *whole);
}

void PartCommands::TakeSelectedOut() {
    const std::vector<std::int64_t> ids = Selected();
    if (!ids.empty()) Put(Text("Take out part"), ids, 0);
}

void PartCommands::Put(const QString& name, const std::vector<std::int64_t>& ids,
                       std::int64_t whole) const {
    const PartEdits edits(m_parts);
    const std::string failure = m_parts.change(name, [&] {
        for (const std::int64_t id : ids) {
            if (const long status = edits.Put(id, whole, 0); status != 0) return status;
        }
        return 0L;
    });
    if (!failure.empty()) {
        m_context.Refuse(Text("Nothing was changed.") + "\n\n" + ProblemText(failure));
    }
}

void PartCommands::NarrowOrWiden() {
    if (IsNarrowed()) return Narrow(0);
    const std::vector<CBaseRecord*> records =
        m_context.Frame().ToDos().SelectedRecords(WayOut::View);
    if (records.size() == 1) Narrow(records.front()->GetId());
}

void PartCommands::LookAfterNarrowed() {
    if (!IsNarrowed()) return;
    CToDoRecord record(m_context.Session().ToDos());
    const bool isThere = m_context.Session().ToDos().Find(m_narrowed, record) == 0;
    if (!isThere || record.IsDeleted() != 0) Narrow(0);
}

// Parts come and go while they show.
void PartCommands::Narrow(std::int64_t id) {
    m_narrowed = id;
    ShownToDos& toDos = m_context.Frame().ToDos();
    if (id == 0) return toDos.SetFilter({});
    struct Below {
        std::uint64_t version = 0;
        std::unordered_set<std::int64_t> ids;
    };
    toDos.SetFilter([this, id, below = std::make_shared<Below>()](const CBaseRecord& record) {
        TodoParts& parts = m_context.Session().Parts();
        if (below->version != parts.Version()) {
            below->ids = parts.AllBelow(id);
            below->version = parts.Version();
        }
        return record.GetId() == id || below->ids.count(record.GetId()) != 0;
    });
}

}  // namespace orvo::desktop
