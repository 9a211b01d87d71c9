// The user's password, of which only a hash is kept.
// SPDX-License-Identifier: MIT
#include <array>
#include <filesystem>
#include <sodium.h>
#include <string>

#include <contracts/Settings.h>
#include <desktop/security/Password.h>
#include <platform/settings/SettingsStore.h>

namespace orvo::desktop {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSection = "Security";
constexpr const char* kHashKey = "PasswordHash";

// A file of its owner's making may be open to others, who would find the hash in it.
bool MakeSettingsOwn() {
    std::error_code error;
    fs::permissions(SettingsStore::Path(), fs::perms::owner_read | fs::perms::owner_write, error);
    return !error || error == std::errc::no_such_file_or_directory;
}

std::string Hash() {
    std::array<char, crypto_pwhash_STRBYTES> buffer{};
    unsigned long size = buffer.size();
    CmnGetProfileString(kSection, kHashKey, buffer.data(), size, "");
    return buffer.data();
}

}  // namespace

TypedPassword::TypedPassword(const QString& typed)
    : m_bytes(typed.normalized(QString::NormalizationForm_C).toUtf8()) {}

TypedPassword::~TypedPassword() {
    sodium_memzero(m_bytes.data(), static_cast<std::size_t>(m_bytes.size()));
}

bool IsPasswordSet() {
    return !Hash().empty();
}

bool IsPassword(const TypedPassword& typed) {
    const QByteArray& bytes = typed.Bytes();
    return sodium_init() >= 0 &&
           crypto_pwhash_str_verify(Hash().c_str(), bytes.constData(),
                                    static_cast<unsigned long long>(bytes.size())) == 0;
}

bool SetPassword(const TypedPassword& typed) {
    const QByteArray& bytes = typed.Bytes();
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    return sodium_init() >= 0 &&
           crypto_pwhash_str(
               hash.data(), bytes.constData(), static_cast<unsigned long long>(bytes.size()),
               crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE) == 0 &&
           MakeSettingsOwn() && CmnWriteProfileString(kSection, kHashKey, hash.data()) != 0;
}

bool RemovePassword() {
    return CmnWriteProfileString(kSection, kHashKey, "") != 0;
}

}  // namespace orvo::desktop
