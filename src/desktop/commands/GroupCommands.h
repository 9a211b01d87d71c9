// Groups of people: who is in them, and who comes in and goes.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QString>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

struct NamedGroup {
    std::int64_t id;
    QString name;
};

class GroupCommands : public QObject {
public:
    // The context outlives the commands.
    explicit GroupCommands(CommandContext& context);

    // Called once all groups of the store are known.
    void SetReadListener(std::function<void()> listener) { m_read = std::move(listener); }
    // Reads the groups of the store for a moment, then bit by bit while the program has nothing to
    // do.
    // Returns:  true where all are known already.
    bool ReadNow();
    // The same without reading more than one at once.
    bool ReadOn();

    // Those that may be seen and are known, by name.
    std::vector<NamedGroup> Groups() const;

    // Only the members of the group show among the addresses; all do again for none.
    void Show(std::optional<std::int64_t> group);
    std::optional<std::int64_t> Shown() const { return m_shown; }

    // What becomes of the selected people, in a menu that is made anew each time that it opens.
    void FillMenu(QMenu& menu);
    bool CanTakeOut() const { return m_shown && m_context.Frame().IsShowingAddresses(); }
    void TakeSelectedOut();

private:
    void AddSelectedTo(std::int64_t group);
    void AddSelectedToNew();
    std::vector<CAddressRecord*> Selected();
    long AddMembers(CAddressRecord& group, const std::vector<CAddressRecord*>& people);
    long TakeOut(CAddressRecord& group, const std::vector<CAddressRecord*>& people);
    void Change(const QString& name, const std::function<long()>& change);

    CommandContext& m_context;
    std::function<void()> m_read;
    QTimer m_timer;  // runs while groups are to be read
    std::optional<std::int64_t> m_shown;
};

}  // namespace orvo::desktop
