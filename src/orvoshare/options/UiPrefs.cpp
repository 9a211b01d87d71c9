// CUiPrefsData: the base of a small file of preferences of the user interface.
// SPDX-License-Identifier: MIT
#include <memory>

#include <orvoshare/options/UiPrefs.h>
#include <platform/io/CArchive.h>

namespace orvo {
namespace {

constexpr int kBufferSize = 4096;

// Serializes the object by an archive over the open file, and closes both.
// Returns:  false where that failed; the file is closed then, too.
bool SerializeAndClose(CObject& object, CFile& file, unsigned mode) {
    try {
        CArchive archive(&file, mode | CArchive::bNoFlushOnDelete, kBufferSize);
        object.Serialize(archive);
        archive.Close();
        file.Close();
        return true;
    } catch (const CException&) {
        file.Abort();
        return false;
    }
}

}  // namespace

const CRuntimeClass CUiPrefsData::classCUiPrefsData(
    "CUiPrefsData", 1, [] { return std::unique_ptr<CObject>(std::make_unique<CUiPrefsData>()); },
    &CObject::classCObject);

const CRuntimeClass* CUiPrefsData::GetRuntimeClass() const {
    return &classCUiPrefsData;
}

void CUiPrefsData::Serialize(CArchive& archive) {
    CObject::Serialize(archive);
}

int CUiPrefsData::Load(const char* path) {
    CFile file;
    const bool isLoaded = file.Open(path, CFile::modeRead | CFile::shareExclusive) != 0 &&
                          SerializeAndClose(*this, file, CArchive::load);
    if (!isLoaded) InitializeDefault();
    return isLoaded ? 1 : 0;
}

int CUiPrefsData::Save(const char* path) {
    CFile file;
    return file.Open(path, CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive) != 0 &&
           SerializeAndClose(*this, file, CArchive::store);
}

}  // namespace orvo
