// Offering to copy what can still be read of a damaged store into a new one.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace orvo::desktop {

// Shows the damage, a line each, and asks whether to rescue; where the user wants it, asks for the
// new store, makes it and says what became of it.
void OfferRescue(QWidget* parent, const std::string& store, const std::vector<std::string>& damage);

// The same without the question.
// Returns:  the new store; nothing where none was made.
std::optional<std::string> RescueIntoNew(QWidget* parent, const std::string& store);

// As OfferRescue, once the program waits for its user, who sees the window then.
void OfferRescueLater(QWidget& parent, const std::string& store,
                      const std::vector<std::string>& damage);

}  // namespace orvo::desktop
