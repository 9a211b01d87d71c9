// Offering to copy what can still be read of a damaged store into a new one.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QString;
class QWidget;

namespace orvo::desktop {

// Restores the open store from a backup.
using BackupRestorer = std::function<void(const std::string& backup)>;

// Shows the damage, a line each, and asks whether to rescue, or to restore the newest good
// automatic backup where there is one. For a rescue it asks for the new store, makes it and says
// what became of it.
void OfferRescue(QWidget* parent, const std::string& store, const std::vector<std::string>& damage,
                 const BackupRestorer& restore);

// The same without the question.
// Returns:  the new store; nothing where none was made.
std::optional<std::string> RescueIntoNew(QWidget* parent, const std::string& store);

// The text of the button that restores a backup.
QString RestoreText(const std::string& backup);

// As OfferRescue, once the program waits for its user, who sees the window then.
void OfferRescueLater(QWidget& parent, const std::string& store,
                      const std::vector<std::string>& damage, const BackupRestorer& restore);

}  // namespace orvo::desktop
