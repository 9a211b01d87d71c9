// What stands behind a file dialog.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include <platform/window/base/WindowPeer.h>
#include <platform/window/dialogs/DialogTemplate.h>
#include <platform/window/pictures/CBitmap.h>

namespace orvo {

// One of the types of files that the dialog lists.
struct FileFilter {
    CString text;      // as it is shown
    CString patterns;  // such as "*.vcf;*.vcs"; "*.*" is every file

    friend bool operator==(const FileFilter&, const FileFilter&) = default;
};

// How a dialog stands when it comes up. Empty texts are the system's own choice.
struct FileDialogSetup {
    bool opens = true;  // else it saves
    CString title;
    CString folder;
    CString fileName;
    CString defaultExtension;  // without its dot; for names that are typed without one
    std::vector<FileFilter> filters;
    bool fileMustExist = false;
    bool folderMustExist = false;
    bool asksBeforeOverwriting = false;
    std::optional<DialogTemplate> added;  // a row of controls below the system's, in this order
};

// The numbers of the system's controls.
constexpr UINT kFileDialogTypeLabel = 1089;
constexpr UINT kFileDialogNameLabel = 1090;
constexpr UINT kFileDialogFolderLabel = 1091;  // IDOK and IDCANCEL are the buttons

// A peer sends its window CDN_SELCHANGE when the user changes the name, and CDN_FILEOK when a name
// that meets the setup was chosen; a button of the added row sends WM_COMMAND. The controls are
// those of the added row, and for SetControlText the system's too; one that isn't there is
// harmless, and counts as neither enabled nor checked.
class FileDialogPeer : public WindowPeer {
public:
    // Shows the dialog until the user is done with it.
    // Returns:  false where no file was chosen, or the window went meanwhile.
    virtual bool ShowModal() = 0;

    // The file that is chosen now; empty where the name is.
    virtual CString PathName() const = 0;

    virtual void SetControlText(UINT id, const CString& text) = 0;
    virtual void EnableControl(UINT id, bool enabled) = 0;
    virtual bool IsControlEnabled(UINT id) const = 0;
    virtual void CheckControl(UINT id, bool checked) = 0;
    virtual bool IsControlChecked(UINT id) const = 0;
    virtual void SetControlBitmap(UINT id, const CBitmap& bitmap) = 0;
};

}  // namespace orvo
