// The user's password, of which only a hash is kept.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace orvo::desktop {

// What the user has typed, as the bytes that count: UTF-8, composed (NFC), so that each keyboard
// gives the same. They are wiped from memory at the end; Qt's own copies can't be.
class TypedPassword {
public:
    explicit TypedPassword(const QString& typed);
    ~TypedPassword();
    TypedPassword(const TypedPassword&) = delete;
    TypedPassword& operator=(const TypedPassword&) = delete;

    bool IsEmpty() const { return m_bytes.isEmpty(); }
    const QByteArray& Bytes() const { return m_bytes; }
    bool operator==(const TypedPassword& other) const { return m_bytes == other.m_bytes; }

private:
    QByteArray m_bytes;
};

// The hash (Argon2id, in the form of libsodium's crypto_pwhash_str) lies in the settings file,
// which is then for its owner alone.
bool IsPasswordSet();

// False, too, where none is set. It takes about a tenth of a second, and 64 MiB meanwhile.
bool IsPassword(const TypedPassword& typed);

// Gives:  false where the settings file can't be written, or there is no memory for the hash; the
//         old password stays then.
bool SetPassword(const TypedPassword& typed);
bool RemovePassword();

}  // namespace orvo::desktop
