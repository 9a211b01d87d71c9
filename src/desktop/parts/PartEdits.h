// The parts of a to-do as a tree, and what can be done to them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <host/Disclosure.h>
#include <orvoshare/todo/TodoParts.h>

namespace orvo::desktop {

struct ToDoPart {
    std::int64_t id = 0;
    std::string text;  // its description, UTF-8; empty where it is masked
    bool isCompleted = false;
    bool isMasked = false;
    bool isCut = false;           // it stands for further ones that aren't shown
    std::vector<ToDoPart> parts;  // in their order
    bool operator==(const ToDoPart&) const = default;
};

// What a tree of parts works with.
struct PartsContext {
    CToDoTable& table;
    std::function<TodoParts&()> index;  // in which all to-dos are noted as they are now
    std::function<Told(WayOut way, const CToDoRecord&)> told;
    std::function<bool()> marksCompletion;  // records when a to-do was completed
    // Runs a change, which returns 0 on success, as one step of that name: all of it, or nothing.
    // Returns:  an empty text on success, else why not, in one line.
    std::function<std::string(const QString& name, const std::function<long()>& change)> change;
};

// Each edit is one step that can be taken back.
class PartEdits {
public:
    // The context outlives it.
    explicit PartEdits(const PartsContext& context) : m_context(context) {}

    std::vector<ToDoPart> PartsOf(std::int64_t whole) const;
    // All that are below it and open, and may be changed.
    std::vector<std::int64_t> OpenPartsOf(std::int64_t whole) const;

    // Below, the texts that are returned say why nothing was changed, and are empty on success;
    // `before` is a part of the whole, or 0 for the end.

    // Adds a part, of the category of its whole and private like that; its id goes to `id`.
    std::string Add(std::int64_t whole, std::int64_t before, const std::string& text,
                    std::int64_t& id) const;
    std::string SetText(std::int64_t id, const std::string& text) const;
    // With `others` in the same step.
    std::string SetCompleted(std::int64_t id, bool isCompleted,
                             const std::vector<std::int64_t>& others = {}) const;
    // Makes it a part of that whole, at that place.
    std::string Move(std::int64_t id, std::int64_t whole, std::int64_t before) const;
    std::string TakeOut(std::int64_t id) const;

    // What is behind these, inside of a change: 0 or a StoreStatus. `whole` 0 stands for none; what
    // would be part of itself then stays where it is.
    long Put(std::int64_t id, std::int64_t whole, std::int64_t before) const;
    long Complete(const std::vector<std::int64_t>& ids) const;

private:
    struct Children {
        std::vector<std::unique_ptr<CToDoRecord>> records;  // in their order
    };
    Children ChildrenOf(std::int64_t whole) const;
    void Read(std::int64_t whole, int depth, int& room, std::vector<ToDoPart>& parts) const;
    std::string UidOf(std::int64_t id) const;
    long SetParent(CToDoRecord& record, std::int64_t whole) const;
    long Arrange(std::int64_t whole, CToDoRecord& record, std::int64_t before) const;
    long Change(std::int64_t id, const std::function<long(CToDoRecord&)>& change) const;

    const PartsContext& m_context;
};

}  // namespace orvo::desktop
