// Dialog templates: what a dialog is made of before it is made.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/window/base/Geometry.h>

namespace orvo {

enum class ControlKind { Static, RadioButton, PushButton, BitmapButton };

struct DialogControl {
    int id = -1;
    ControlKind kind = ControlKind::Static;
    CRect rectangle;  // dialog units; a translation may need more room
    CString text;     // "&" marks the key
    bool startsGroup = false;
    bool disabled = false;
    bool hiddenText = false;  // the text names the control, and is never shown
};

struct DialogTemplate {
    CSize size;  // dialog units
    CString fontFace;
    int fontHeight = 0;  // points
    std::vector<DialogControl> controls;
};

// The dialog of that number from the resources in reach; nothing where there is none.
ORVO_API std::optional<DialogTemplate> LoadDialogTemplate(unsigned number);

}  // namespace orvo
