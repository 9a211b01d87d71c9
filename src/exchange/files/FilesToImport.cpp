// Which files an import takes where the user names files and folders.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <filesystem>

#include <fmt/core.h>

#include <exchange/files/FilesToImport.h>
#include <exchange/files/ImportFile.h>
#include <exchange/lines/ContentLine.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

bool IsNamedForImport(std::string_view name) {
    return std::any_of(
        kImportedEndings.begin(), kImportedEndings.end(), [name](std::string_view ending) {
            return name.size() >= ending.size() &&
                   EqualsIgnoringCase(name.substr(name.size() - ending.size()), ending);
        });
}

class Finder {
public:
    FilesToImport Find(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            std::error_code error;
            if (fs::is_directory(path, error)) {
                TakeNamedFolder(path);
            } else {
                Take(path);
            }
        }
        return std::move(m_found);
    }

private:
    void LeaveOut(const std::string& path, const std::string& reason) {
        m_found.unreadable.push_back(fmt::format("{}: {}", path, reason));
    }

    void Take(const std::string& path) {
        const std::string reason = WhyNotImportable(path);
        if (reason.empty()) {
            m_found.files.push_back(path);
        } else {
            LeaveOut(path, reason);
        }
    }

    void TakeNamedFolder(const std::string& folder) {
        const std::size_t before = m_found.files.size() + m_found.unreadable.size();
        TakeFolder(folder);
        if (m_found.files.size() + m_found.unreadable.size() == before) {
            LeaveOut(folder, "the folder holds no card or calendar file");
        }
    }

    void TakeFolder(const fs::path& folder) {
        std::error_code error;
        std::vector<fs::path> paths;
        for (fs::directory_iterator entry(folder, error), last; !error && entry != last;
             entry.increment(error)) {
            paths.push_back(entry->path());
        }
        if (error) LeaveOut(folder.string(), "can't be read: " + error.message());
        std::sort(paths.begin(), paths.end());
        for (const fs::path& path : paths) {
            // A link could lead round in a circle, or out of what the user has named.
            const fs::file_type type = fs::symlink_status(path, error).type();
            if (type == fs::file_type::directory) {
                TakeFolder(path);
            } else if (type == fs::file_type::regular && IsNamedForImport(path.native())) {
                Take(path.string());
            }
        }
    }

    FilesToImport m_found;
};

}  // namespace

FilesToImport FindFilesToImport(const std::vector<std::string>& paths) {
    return Finder().Find(paths);
}

}  // namespace orvo
