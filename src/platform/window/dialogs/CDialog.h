// CDialog: a window that asks something.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/io/CObject.h>
#include <platform/window/base/CWnd.h>

namespace orvo {

class ORVO_API CDialog : public CWnd, public CObject {
public:
    static const CRuntimeClass classCDialog;
    const CRuntimeClass* GetRuntimeClass() const override;

    // Shows the dialog until the user is done with it.
    // Returns:  IDOK or IDCANCEL.
    // Fails:    with -1 where it can't be shown.
    virtual int DoModal() = 0;

protected:
    // Called when the controls stand and nothing is shown yet.
    // Returns:  1 where the system may choose which control gets the focus.
    virtual BOOL OnInitDialog() { return 1; }
};

}  // namespace orvo
