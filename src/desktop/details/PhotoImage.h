// The pictures of people, as cards hold them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <string_view>

namespace orvo::desktop {

// The picture, upright, at most `side` pixels wide and high; null where the bytes are none, or one
// so large that it would take the machine's memory.
QImage PhotoImage(std::string_view bytes, int side);

}  // namespace orvo::desktop
