// The edit control of the desktop library. Fulfilled by libraries/odcmn.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/window/edit/CEdit.h>

namespace orvo {

// The command that deletes what the Delete key would delete; the text has changed when it returns.
constexpr UINT ID_EDIT_DELETE = 419;

class ORVO_API COrvoEdit : public CEdit {
public:
    // Pastes what the clipboard holds; only its first line.
    virtual void Paste();

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

protected:
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnEditDelete();
};

}  // namespace orvo
