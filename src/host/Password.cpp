// The user's password, of which only a hash is kept.
// SPDX-License-Identifier: MIT
#include <array>
#include <filesystem>
#include <sodium.h>

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>

#include <host/Password.h>
#include <host/SettingText.h>
#include <platform/settings/SettingsStore.h>

namespace orvo {
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
    return SettingText(kSection, kHashKey);
}

// Composing makes a text longer only where it has one of a few old characters.
constexpr std::size_t kMostGrowth = 3;

}  // namespace

TypedPassword::TypedPassword(std::string_view utf8) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(error);
    // A string that grew would leave a part of the password behind in memory.
    m_bytes.reserve(kMostGrowth * utf8.size());
    if (U_SUCCESS(error)) {
        icu::StringByteSink<std::string> sink(&m_bytes);
        const icu::StringPiece piece(utf8.data(), static_cast<int32_t>(utf8.size()));
        composer->normalizeUTF8(0, piece, sink, nullptr, error);
    }
    if (U_FAILURE(error)) m_bytes = utf8;
}

TypedPassword::~TypedPassword() {
    Wipe(m_bytes);
}

void Wipe(std::string& secret) {
    sodium_memzero(secret.data(), secret.size());
}

bool IsPasswordSet() {
    return !Hash().empty() || !SettingsStore::IsReadable();
}

bool IsPassword(const TypedPassword& typed) {
    const std::string_view bytes = typed.Bytes();
    return sodium_init() >= 0 &&
           crypto_pwhash_str_verify(Hash().c_str(), bytes.data(), bytes.size()) == 0;
}

bool SetPassword(const TypedPassword& typed) {
    const std::string_view bytes = typed.Bytes();
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    return sodium_init() >= 0 &&
           crypto_pwhash_str(hash.data(), bytes.data(), bytes.size(),
                             crypto_pwhash_OPSLIMIT_INTERACTIVE,
                             crypto_pwhash_MEMLIMIT_INTERACTIVE) == 0 &&
           MakeSettingsOwn() && SetSettingText(kSection, kHashKey, hash.data());
}

bool RemovePassword() {
    return SetSettingText(kSection, kHashKey, "");
}

}  // namespace orvo
