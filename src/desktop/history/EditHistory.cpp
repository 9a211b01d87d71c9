// Undo and redo of everything that the program changes in its store.
// SPDX-License-Identifier: MIT
#include <deque>
#include <utility>

#include <desktop/history/EditHistory.h>
#include <desktop/texts/Texts.h>

#include "RecordingEngine.h"
#include "StepNames.h"
#include "TakeBack.h"

namespace orvo::desktop {
namespace {

constexpr std::size_t kMostSteps = 200;

struct NamedStep {
    std::string name;
    StepChanges changes;
    std::string kept;  // what the whole store was before, as a file; empty for other steps
};
using Steps = std::deque<NamedStep>;

std::string LastName(const Steps& steps) {
    return steps.empty() ? std::string() : steps.back().name;
}

}  // namespace

struct EditHistory::State {
    explicit State(StoreEngine& real)
        : engine(real, [this](StepChanges changes) { Take(std::move(changes)); }) {}

    void Take(StepChanges changes) {
        TellRows(changes);
        open.Append(std::move(changes));
        if (depth == 0) Close();
    }

    void Close() {
        StepChanges changes = std::exchange(open, {});
        std::string ownName = std::exchange(name, {});
        changes.Finish();
        if (changes.IsEmpty()) return;
        if (ownName.empty()) ownName = NameOfStep(changes);
        Add({std::move(ownName), std::move(changes), {}});
    }

    void Add(NamedStep step) {
        undo.push_back(std::move(step));
        if (undo.size() > kMostSteps) undo.pop_front();
        redo.clear();
        ++count;
        Tell();
    }

    std::string Move(Steps& from, Steps& to);
    std::string MoveStore(Steps& from, Steps& to);

    void TellRows(const StepChanges& changes) const {
        if (!rowListener) return;
        for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
            for (const AddedRow& row : changes.Added(kind)) rowListener(kind, row.id);
            for (const auto& [id, change] : changes.Changed(kind)) rowListener(kind, id);
        }
        // Such as the name of a category, which many rows show.
        for (const auto& [key, change] : changes.Texts()) rowListener(key.table, std::nullopt);
    }

    void Tell() {
        if (const std::function<void()> told = listener) told();
    }

    RecordingEngine engine;
    Steps undo;
    Steps redo;
    StepChanges open;  // of the Step that lives
    std::string name;
    int depth = 0;
    std::uint64_t count = 0;
    std::function<void()> listener;
    RowListener rowListener;
    Restorer restorer;
};

// Takes the last step of `from` back and puts its inverse to `to`.
std::string EditHistory::State::Move(Steps& from, Steps& to) {
    if (from.empty()) return {};
    if (depth > 0 || engine.InTransaction()) {
        return Text("Another change isn't finished yet. Nothing was changed.").toStdString();
    }
    if (!from.back().kept.empty()) return MoveStore(from, to);
    StoreEngine& real = engine.Real();
    StoreTransaction transaction(real);
    if (transaction.Status() != StoreStatus::Ok) return real.LastError();
    NamedStep inverse{from.back().name, {}, {}};
    std::string reason;
    if (!TakeBack(real, from.back().changes, inverse.changes, reason)) return reason;
    if (transaction.Commit() != StoreStatus::Ok) return real.LastError();
    TellRows(inverse.changes);
    inverse.changes.Finish();
    from.pop_back();
    to.push_back(std::move(inverse));
    Tell();
    return {};
}

std::string EditHistory::State::MoveStore(Steps& from, Steps& to) {
    NamedStep inverse{from.back().name, {}, {}};
    std::string reason = restorer(from.back().kept, inverse.kept);
    if (!reason.empty()) return reason;
    from.pop_back();
    to.push_back(std::move(inverse));
    Tell();
    return {};
}

EditHistory::EditHistory(StoreEngine& engine) : m_state(std::make_unique<State>(engine)) {}

EditHistory::~EditHistory() = default;

StoreEngine& EditHistory::Engine() {
    return m_state->engine;
}

EditHistory::Step::Step(EditHistory& history, std::string name) : m_history(history) {
    State& state = *m_history.m_state;
    // One that has ended may still wait for its transaction.
    if (state.depth++ == 0 && state.name.empty()) state.name = std::move(name);
}

EditHistory::Step::~Step() {
    State& state = *m_history.m_state;
    if (--state.depth == 0 && !state.engine.InTransaction()) state.Close();
}

std::uint64_t EditHistory::Count() const {
    return m_state->count;
}

bool EditHistory::CanUndo() const {
    return !m_state->undo.empty();
}

bool EditHistory::CanRedo() const {
    return !m_state->redo.empty();
}

std::string EditHistory::UndoName() const {
    return LastName(m_state->undo);
}

std::string EditHistory::RedoName() const {
    return LastName(m_state->redo);
}

std::string EditHistory::Undo() {
    return m_state->Move(m_state->undo, m_state->redo);
}

std::string EditHistory::Redo() {
    return m_state->Move(m_state->redo, m_state->undo);
}

void EditHistory::AddRestore(std::string name, std::string kept) {
    m_state->Add({std::move(name), {}, std::move(kept)});
}

void EditHistory::SetRestorer(Restorer restorer) {
    m_state->restorer = std::move(restorer);
}

void EditHistory::SetRowListener(RowListener listener) {
    m_state->rowListener = std::move(listener);
}

void EditHistory::SetListener(std::function<void()> listener) {
    m_state->listener = std::move(listener);
}

}  // namespace orvo::desktop
