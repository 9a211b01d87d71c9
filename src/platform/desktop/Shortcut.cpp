// Shortcuts: files that stand for another one.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <filesystem>
#include <string>

#include <platform/desktop/LinkEntry.h>
#include <platform/desktop/ShellLinkFile.h>
#include <platform/desktop/Shortcut.h>
#include <platform/io/WholeFile.h>
#include <platform/text/SystemText.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kGreatestFile = 1 << 20;  // far above any shortcut

fs::path FileOf(const CString& path) {
    return ToUtf8(path);
}

CString PathOf(const fs::path& file) {
    return SystemText(file.string());
}

bool EndsIn(const CString& path, const CString& extension) {
    return path.Right(extension.GetLength()).CompareNoCase(extension) == 0;
}

bool IsLink(const fs::path& file) {
    std::error_code nothing;
    return fs::is_symlink(fs::symlink_status(file, nothing));
}

bool IsThere(const fs::path& file) {
    std::error_code nothing;
    return fs::exists(fs::symlink_status(file, nothing));
}

// What the folder has of that name: the same, else the first that differs in case only. Empty where
// there is none.
fs::path FindName(const fs::path& folder, const std::string& name) {
    if (IsThere(folder / name)) return folder / name;
    const CString wanted = PathOf(name);
    std::string best;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string found = entry->path().filename().string();
        const bool isBetter = best.empty() || found < best;
        if (isBetter && PathOf(found).CompareNoCase(wanted) == 0) best = found;
    }
    return best.empty() ? fs::path() : folder / best;
}

// The path from the folder, name by name; empty where a name isn't there.
fs::path FindPath(fs::path folder, const fs::path& relative) {
    for (const fs::path& name : relative) {
        if (name.empty() || name == ".") continue;
        folder = name == ".." ? folder.parent_path() : FindName(folder, name.string());
        if (folder.empty()) break;
    }
    return folder;
}

bool IsFile(const fs::path& file) {
    std::error_code nothing;
    return !file.empty() && fs::is_regular_file(file, nothing);
}

// Of a path as the shell link has it: '\' separates names, and a letter may stand for a drive.
fs::path LocalPath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.size() >= 2 && path[1] == ':') path.erase(0, 2);
    return path;
}

fs::path FindTarget(const fs::path& folder, const ShellLinkFile& link) {
    fs::path found = FindPath(folder, LocalPath(link.relativePath));
    if (IsFile(found)) return found;
    fs::path base = LocalPath(link.basePath);
    if (IsFile(base) && base.is_absolute()) return base;
    const fs::path below = base.relative_path();
    for (auto start = below.begin(); start != below.end(); ++start) {
        fs::path end;
        std::for_each(start, below.end(), [&](const fs::path& name) { end /= name; });
        found = FindPath(folder, end);
        if (IsFile(found)) return found;
    }
    return {};
}

// Empty where it can't be read.
std::string BytesOf(const fs::path& file) {
    std::string bytes;
    ReadWholeFile(file.string(), bytes, kGreatestFile);
    return bytes;
}

HRESULT Resolve(const fs::path& file, fs::path& target) {
    std::error_code nothing;
    const fs::path real = fs::canonical(file, nothing);
    if (!IsFile(real)) return kFileNotFound;
    const CString name = PathOf(real);
    if (EndsIn(name, ".lnk")) {
        target = FindTarget(real.parent_path(), ReadShellLink(BytesOf(real)));
    } else if (EndsIn(name, ".desktop")) {
        const std::string path = PathOfLinkEntry(BytesOf(real));
        if (path.empty()) return E_FAIL;
        target = FindPath("/", fs::path(path).relative_path());
    } else if (IsLink(file)) {
        target = real;
    } else {
        return E_FAIL;
    }
    return IsFile(target) ? S_OK : kFileNotFound;
}

}  // namespace

bool IsShortcut(const CString& path) {
    return EndsIn(path, ".lnk") || EndsIn(path, ".desktop") || IsLink(FileOf(path));
}

HRESULT ResolveShortcut(const char* path, CString& target) {
    target.Empty();
    try {
        const fs::path whole = fs::absolute(FileOf(path));
        fs::path found;
        const HRESULT result = Resolve(FindPath("/", whole.relative_path()), found);
        if (result == S_OK) target = PathOf(found);
        return result;
    } catch (const std::exception&) {
        return E_FAIL;
    }
}

}  // namespace orvo
