// CUiPrefsData: the base of a small file of preferences of the user interface.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/io/CObject.h>

namespace orvo {

// A derived class has fields, and replaces Serialize to read and write them and InitializeDefault
// to give them their defaults. The file holds what Serialize writes, and nothing else.
class ORVO_API CUiPrefsData : public CObject {
public:
    static const CRuntimeClass classCUiPrefsData;

    const CRuntimeClass* GetRuntimeClass() const override;
    void Serialize(CArchive& archive) override;
    virtual void InitializeDefault() {}

    // The path is in the bytes of the file system.
    // Returns:  1 when the file was read; 0 when the defaults were taken, because the file isn't
    //           there, is in use, or is damaged.
    int Load(const char* path);

    // Returns:  1 when the file was written.
    // Fails:    with 0. A file that could be opened may then be empty or incomplete.
    int Save(const char* path);
};

}  // namespace orvo
