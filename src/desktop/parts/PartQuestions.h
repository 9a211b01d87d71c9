// What is asked where to-dos and their parts change.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <string_view>

namespace orvo::desktop {

enum class PartsAnswer { All, OnlyThis, Cancel };

// Whether that many open parts of a to-do that is completed are completed, too.
PartsAnswer AskAboutOpenParts(QWidget* parent, int count);

// Whether a text that somebody else has changed meanwhile to `theirs` is replaced all the same.
bool MayReplaceText(QWidget* parent, std::string_view theirs);

}  // namespace orvo::desktop
