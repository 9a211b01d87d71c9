// Tests of keys and typed values, and of how they lie in the settings file.
// SPDX-License-Identifier: MIT
#include <string_view>
#include <tuple>

#include <gmock/gmock.h>

#include <platform/registry/Registry.h>
#include <platform/settings/SettingsFixture.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;
using Registry = SettingsFixture;

// A key that is made where it isn't there, and closed at the end.
struct Key {
    Key(HKEY parent, const char* path, std::uint32_t access = KEY_ALL_ACCESS) {
        EXPECT_EQ(RegCreateKeyExA(parent, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                                  nullptr, &handle, &disposition),
                  ERROR_SUCCESS);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { RegCloseKey(handle); }
    operator HKEY() const { return handle; }

    HKEY handle = nullptr;
    std::uint32_t disposition = 0;
};

long Open(HKEY parent, const char* path, HKEY& key) {
    return RegOpenKeyExA(parent, path, 0, KEY_READ, &key);
}

bool IsThere(HKEY parent, const char* path) {
    HKEY key = nullptr;
    return Open(parent, path, key) == ERROR_SUCCESS && RegCloseKey(key) == ERROR_SUCCESS;
}

long Set(HKEY key, const char* name, std::uint32_t type, std::string_view data) {
    const std::vector<unsigned char> bytes(data.begin(), data.end());
    return RegSetValueExA(key, name, 0, type, bytes.data(),
                          static_cast<std::uint32_t>(bytes.size()));
}

struct Value {
    long status;
    std::uint32_t type;
    std::string data;
    std::uint32_t size;
};

Value Query(HKEY key, const char* name, std::uint32_t room = 1024) {
    std::vector<unsigned char> bytes(room + 1, '#');
    std::uint32_t type = 0;
    std::uint32_t size = room;
    const long status = RegQueryValueExA(key, name, nullptr, &type, bytes.data(), &size);
    EXPECT_EQ(bytes.back(), '#') << "behind the room";
    const long read = status == ERROR_SUCCESS ? size : 0;
    return {status, type, std::string(bytes.begin(), bytes.begin() + read), size};
}

TEST_F(Registry, EachTypeComesBackAndIsReadableInTheFile) {
    using Row = std::tuple<const char*, std::uint32_t, std::string, std::string, const char*>;
    const Row rows[] = {
        {"a text", REG_SZ, "Dear\n\0"s, "Dear\n\0"s, "v=text:Dear\\n\n"},
        {"a text without its zero", REG_SZ, "a"s, "a\0"s, "v=text:a\n"},
        {"an empty text", REG_SZ, ""s, "\0"s, "v=text:\n"},
        {"a text with variables", REG_EXPAND_SZ, "%HOME%\0"s, "%HOME%\0"s, "v=expand:%HOME%\n"},
        {"bytes", REG_BINARY, "\x01\0\xFF"s, "\x01\0\xFF"s, "v=bytes:0100FF\n"},
        {"no bytes", REG_BINARY, ""s, ""s, "v=bytes:\n"},
        {"a number, least byte first", REG_DWORD, "\x01\x02\0\xFF"s, "\x01\x02\0\xFF"s,
         "v=number:4278190593\n"},
        {"texts", REG_MULTI_SZ, "a\0b\0\0"s, "a\0b\0\0"s, "v=texts:a\\x00b\\x00\n"},
    };
    const Key key(HKEY_CURRENT_USER, "k");
    for (const auto& [why, type, data, want, line] : rows) {
        EXPECT_EQ(Set(key, "v", type, data), ERROR_SUCCESS) << why;
        const Value value = Query(key, "v");
        EXPECT_EQ(std::pair(value.type, value.data), std::pair(type, want)) << why;
        EXPECT_THAT(Bytes(), HasSubstr(line)) << why;
    }
}

TEST_F(Registry, ValuesLieInTheSettingsFileBesideTheOthers) {
    Put("; mine\n[Profile/k]\nv=1\n");
    const Key key(HKEY_LOCAL_MACHINE, "Software\\Orvo");
    EXPECT_EQ(Set(key, "Name", REG_SZ, "a\nb"), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, nullptr, REG_DWORD, "\x2A\0\0\0"s), ERROR_SUCCESS);

    EXPECT_EQ(Bytes(),
              "; mine\n[Profile/k]\nv=1\n\n[LocalMachine/software\\\\orvo]\nname=text:a\\nb\n"
              "=number:42\n");
}

TEST_F(Registry, AKeyIsThereWithThoseAboveItInEitherCase) {
    const Key key(HKEY_CURRENT_USER, "\\Software\\Orvo\\View\\");
    EXPECT_EQ(key.disposition, REG_CREATED_NEW_KEY);
    for (const char* path : {"software\\ORVO\\View", "Software"}) {
        EXPECT_EQ(Key(HKEY_CURRENT_USER, path).disposition, REG_OPENED_EXISTING_KEY) << path;
    }

    EXPECT_TRUE(IsThere(HKEY_CURRENT_USER, "SOFTWARE\\Orvo"));
    EXPECT_FALSE(IsThere(HKEY_CURRENT_USER, "Software\\Orv"));
    EXPECT_FALSE(IsThere(HKEY_LOCAL_MACHINE, "Software"));
    HKEY orvo = nullptr;
    ASSERT_EQ(Open(HKEY_CURRENT_USER, "Software\\Orvo", orvo), ERROR_SUCCESS);
    EXPECT_TRUE(IsThere(orvo, "view"));
    EXPECT_TRUE(IsThere(orvo, nullptr)) << "the key itself";
    EXPECT_FALSE(IsThere(orvo, "Software"));
    EXPECT_EQ(Set(key, "Width", REG_SZ, "1"), ERROR_SUCCESS);
    EXPECT_EQ(Query(key, "wIDTH").data, "1\0"s);
    RegCloseKey(orvo);
}

TEST_F(Registry, ADeletedValueIsGoneAndItsKeyStays) {
    const Key key(HKEY_CURRENT_USER, "k");
    EXPECT_EQ(Set(key, "v", REG_SZ, "1"), ERROR_SUCCESS);

    EXPECT_EQ(RegDeleteValueA(key, "V"), ERROR_SUCCESS);

    EXPECT_EQ(Query(key, "v").status, ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteValueA(key, "v"), ERROR_FILE_NOT_FOUND);
    EXPECT_TRUE(IsThere(HKEY_CURRENT_USER, "k"));
}

TEST_F(Registry, TooLittleRoomTellsHowMuchItTakes) {
    const Key key(HKEY_CURRENT_USER, "k");
    EXPECT_EQ(Set(key, "v", REG_SZ, "1234"), ERROR_SUCCESS);

    const Value cut = Query(key, "v", 4);
    EXPECT_EQ(std::pair(cut.status, cut.size), std::pair(ERROR_MORE_DATA, 5U));
    EXPECT_EQ(Query(key, "v", 5).data, "1234\0"s);
    std::uint32_t size = 0;
    EXPECT_EQ(RegQueryValueExA(key, "v", nullptr, nullptr, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 5U);
}

TEST_F(Registry, WhatIsWrongIsRefusedAndChangesNothing) {
    Put("[CurrentUser/k]\na=7\nb=number:x\nc=bytes:123\nd=number:4294967296\ne=nothing:\n");
    const Key key(HKEY_CURRENT_USER, "k");
    for (const char* broken : {"a", "b", "c", "d", "e"}) {
        EXPECT_EQ(Query(key, broken).status, ERROR_INVALID_DATA) << broken;
    }
    const std::string before = Bytes();
    const Key readOnly(HKEY_CURRENT_USER, "k", KEY_READ);
    const Key writeOnly(HKEY_CURRENT_USER, "k", KEY_WRITE);
    EXPECT_EQ(Set(readOnly, "a", REG_SZ, "1"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteValueA(readOnly, "a"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Query(writeOnly, "a").status, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Set(key, "a", REG_DWORD, "123"), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Set(key, "a", 11, "12345678"), ERROR_INVALID_PARAMETER);

    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Query(key, "a").status, ERROR_INVALID_HANDLE);
    HKEY none = key;
    EXPECT_EQ(Open(HKEY_CURRENT_USER, "there\\is\\no\\such", none), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(Bytes(), before);
}

TEST_F(Registry, AFileThatCannotBeWrittenIsTold) {
    SettingsStore::SetPath("/proc/orvo/settings.ini");
    testing::internal::CaptureStderr();
    HKEY key = nullptr;
    EXPECT_EQ(
        RegCreateKeyExA(HKEY_CURRENT_USER, "k", 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
        ERROR_ACCESS_DENIED);
    EXPECT_EQ(key, nullptr);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                HasSubstr("[CurrentUser/k] can't be saved: its folder can't be made"));
}

class RegistryText : public SettingsFixture, public testing::WithParamInterface<LocaleCase> {
    const LocaleInForce m_locale{GetParam().tag, GetParam().codePage};
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, RegistryText, testing::ValuesIn(kBothCodePages));

// In page 932 the second byte of U+8868 is a backslash.
TEST_P(RegistryText, APathIsPartedByCharactersAndATextStaysItself) {
    const std::string hyo = GetParam().codePage == 932 ? "\x95\x5C" : "\xE8\xA1\xA8";
    const Key key(HKEY_CURRENT_USER, ("a\\" + hyo).c_str());
    EXPECT_EQ(Set(key, hyo.c_str(), REG_SZ, hyo), ERROR_SUCCESS);

    EXPECT_EQ(Query(key, hyo.c_str()).data, hyo + '\0');
    EXPECT_THAT(Bytes(), HasSubstr("[CurrentUser/a\\\\\xE8\xA1\xA8]\n"));
}

}  // namespace
}  // namespace orvo
