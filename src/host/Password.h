// The user's password, of which only a hash is kept.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace orvo {

// What the user has typed, as the bytes that count: UTF-8, composed (NFC), so that each keyboard
// gives the same. They are wiped from memory at the end; the caller's own copies aren't.
class TypedPassword {
public:
    explicit TypedPassword(std::string_view utf8);
    ~TypedPassword();
    TypedPassword(const TypedPassword&) = delete;
    TypedPassword& operator=(const TypedPassword&) = delete;

    bool IsEmpty() const { return m_bytes.empty(); }
    std::string_view Bytes() const { return m_bytes; }
    bool operator==(const TypedPassword& other) const { return m_bytes == other.m_bytes; }

private:
    std::string m_bytes;
};

// Overwrites the bytes, so that they stay nowhere in memory.
void Wipe(std::string& secret);

// The hash (Argon2id, in the form of libsodium's crypto_pwhash_str) lies in the settings file,
// which is then for its owner alone. Settings that can't be read may hold one, so that one counts
// as set; none is right then.
bool IsPasswordSet();

// False, too, where none is set. It takes about a tenth of a second, and 64 MiB meanwhile.
bool IsPassword(const TypedPassword& typed);

// Returns:  false where the settings file can't be written, or there is no memory for the hash; the
//           old password stays then.
bool SetPassword(const TypedPassword& typed);
bool RemovePassword();

}  // namespace orvo
