// CExportFileDialog: asks where to export to, and which records.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/dialogs/CFileDialog.h>

namespace orvo {

// The ranges, as a choice and, but for kNoRangeChoice, as bits of those that are on offer.
constexpr unsigned long kRangeAll = 1;
constexpr unsigned long kRangeSelected = 2;
constexpr unsigned long kNoRangeChoice = 4;

class ORVO_API CExportFileDialog : public CFileDialog {
public:
    static const CRuntimeClass classCExportFileDialog;
    const CRuntimeClass* GetRuntimeClass() const override;

    // `availableRanges` of kNoRangeChoice leaves the choice out, 0 the title, too. A default of
    // anything but kRangeAll is kRangeSelected; it is chosen at first even where it isn't on offer.
    // The choice is laid out by the template 1006 of `templateModule`, null for this module.
    CExportFileDialog(HINSTANCE templateModule, const char* defaultExtension, const char* filter,
                      CWnd* parent, unsigned long availableRanges, unsigned long defaultRange);

    // After IDOK the range that the user chose: 0 with kNoRangeChoice, and kRangeSelected with 0
    // available ranges. Else 0.
    unsigned long GetRange() const { return m_dwRange; }

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

protected:
    BOOL OnInitDialog() override;
    BOOL OnFileNameOK() override;
    void OnInitDone() override;

private:
    bool OffersRanges() const;

    unsigned long m_dwRange = 0;
    unsigned long m_dwAvailableRanges;
    unsigned long m_dwDefaultRange;
    CString m_strTitle;
};

}  // namespace orvo
