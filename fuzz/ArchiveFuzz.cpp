// Any bytes are the archive of a bit array, of a user's options and of preferences: what can be
// read is stored so that it comes back, and nothing is bigger than the file it came from.
// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include <fmt/format.h>

#include <orvoshare/options/BitArray.h>
#include <orvoshare/options/DesktopOptions.h>
#include <orvoshare/options/UiPrefs.h>
#include <platform/io/CArchive.h>

using namespace orvo;

namespace {

// A file in memory, which is opened by its path as any other.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view bytes) : m_descriptor(::memfd_create("fuzz", 0)) {
        if (m_descriptor < 0) std::abort();
        const ssize_t written = ::write(m_descriptor, bytes.data(), bytes.size());
        if (written != static_cast<ssize_t>(bytes.size())) std::abort();
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { ::close(m_descriptor); }

    std::string Path() const { return fmt::format("/proc/self/fd/{}", m_descriptor); }

private:
    int m_descriptor;
};

bool Load(CObject& object, std::string_view bytes) {
    const MemoryFile memory(bytes);
    CFile file;
    if (!file.Open(memory.Path().c_str(), CFile::modeRead)) std::abort();
    try {
        CArchive archive(&file, CArchive::load);
        object.Serialize(archive);
        return true;
    } catch (const CException&) {
        return false;
    }
}

std::string Store(CObject& object) {
    const MemoryFile memory({});
    CFile file;
    if (!file.Open(memory.Path().c_str(), CFile::modeReadWrite)) std::abort();
    CArchive archive(&file, CArchive::store);
    object.Serialize(archive);
    archive.Close();
    std::string bytes(file.GetLength(), '\0');
    file.Seek(0, CFile::begin);
    if (file.Read(bytes.data(), bytes.size()) != bytes.size()) std::abort();
    return bytes;
}

class Prefs : public CUiPrefsData {
public:
    void Serialize(CArchive& archive) override {
        CUiPrefsData::Serialize(archive);
        if (archive.IsStoring()) {
            archive << m_title << m_width << m_scale;
        } else {
            archive >> m_title >> m_width >> m_scale;
        }
        m_shown.Serialize(archive);
    }
    int TitleLength() const { return m_title.GetLength(); }

private:
    CString m_title;
    int m_width = 0;
    double m_scale = 1;
    CBitArrayHelper m_shown;
};

void CheckBits(std::string_view bytes) {
    CBitArrayHelper array;
    if (!Load(array, bytes)) {
        if (array.GetArraySize() != 0 || array.GetNofElements() != 0) std::abort();
        return;
    }
    const std::string stored = Store(array);
    if (stored != bytes.substr(0, stored.size())) std::abort();
}

void CheckOptions(std::string_view bytes) {
    COrvoDesktopOptions options;
    if (!Load(options, bytes)) return;
    COrvoDesktopOptions again;
    if (!Load(again, Store(options))) std::abort();
    if (again.IsPasswordRequired() != options.IsPasswordRequired()) std::abort();
}

void CheckPrefs(std::string_view bytes) {
    const MemoryFile file(bytes);
    Prefs prefs;
    if (!prefs.Load(file.Path().c_str())) return;
    if (prefs.TitleLength() > static_cast<int>(bytes.size())) std::abort();
    const std::string stored = Store(prefs);
    Prefs again;
    if (!Load(again, stored) || Store(again) != stored) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckBits(bytes);
    CheckOptions(bytes);
    CheckPrefs(bytes);
    return 0;
}
