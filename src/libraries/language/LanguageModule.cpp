// Loading and freeing language modules.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <filesystem>
#include <memory>
#include <mutex>
#include <vector>

#include <fmt/format.h>

#include <contracts/LanguageModule.h>
#include <libraries/language/MessageCatalog.h>
#include <platform/io/WholeFile.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kGreatestFile = 16 << 20;  // far above any language module

class LanguageModule : public Module {
public:
    LanguageModule(MessageCatalog catalog, HINSTANCE own)
        : m_catalog(std::move(catalog)), m_own(own) {}

    bool FindString(unsigned number, std::string& utf8) const override {
        const auto found = m_catalog.texts.find(number);
        if (found == m_catalog.texts.end()) return m_own && m_own->FindString(number, utf8);
        utf8 = found->second;
        return true;
    }

    // A language module holds texts alone; menus and dialogs take theirs from it by number.
    std::string_view FindResource(ResourceKind kind, unsigned number) const override {
        return m_own ? m_own->FindResource(kind, number) : std::string_view();
    }

private:
    MessageCatalog m_catalog;
    HINSTANCE m_own;
};

struct LoadedModules {
    std::mutex mutex;
    std::vector<std::unique_ptr<LanguageModule>> modules;
};

LoadedModules& Loaded() {
    static LoadedModules loaded;
    return loaded;
}

fs::path WithSlash(std::string path) {
    const std::size_t separator = path.find_last_of("\\/");
    if (separator != std::string::npos) path[separator] = '/';
    return path;
}

MessageCatalog ReadFile(const fs::path& path) {
    std::string bytes;
    switch (ReadWholeFile(path.string(), bytes, kGreatestFile)) {
        case 0:
            return ReadMessageCatalog(bytes);
        case EINVAL:
            throw CatalogError("it isn't a file");
        case EFBIG:
            throw CatalogError("it is too long");
        default:
            throw CatalogError("it can't be read");
    }
}

}  // namespace

HINSTANCE CmnLoadLanguageModule(const char* path, HINSTANCE own, int* languageCode) {
    *languageCode = 0;
    const fs::path file = WithSlash(path ? path : "");
    std::error_code nothing;
    if (!fs::exists(file, nothing)) return own;
    try {
        MessageCatalog catalog = ReadFile(file);
        const int code = catalog.languageCode;
        auto module = std::make_unique<LanguageModule>(std::move(catalog), own);
        const std::lock_guard lock(Loaded().mutex);
        Loaded().modules.push_back(std::move(module));
        *languageCode = code;
        return Loaded().modules.back().get();
    } catch (const std::exception& fault) {
        fmt::print(stderr, "{}: not a sound language module: {}\n", file.string(), fault.what());
        return own;
    }
}

int CmnFreeLanguageModule(HINSTANCE language, HINSTANCE own) {
    if (language == own) return 0;
    const std::lock_guard lock(Loaded().mutex);
    const auto freed = std::erase_if(Loaded().modules,
                                     [&](const auto& module) { return module.get() == language; });
    return freed != 0 ? 1 : 0;
}

}  // namespace orvo
