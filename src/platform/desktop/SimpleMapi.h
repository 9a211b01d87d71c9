// The records, flags and codes of Simple MAPI, as published.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace orvo {

using ULONG = std::uint32_t;

struct MapiRecipDesc {
    ULONG ulReserved = 0;
    ULONG ulRecipClass = 0;
    const char* lpszName = nullptr;
    const char* lpszAddress = nullptr;
    ULONG ulEIDSize = 0;
    void* lpEntryID = nullptr;
};

struct MapiFileDesc {
    ULONG ulReserved = 0;
    ULONG flFlags = 0;
    ULONG nPosition = 0;
    const char* lpszPathName = nullptr;
    const char* lpszFileName = nullptr;
    void* lpFileType = nullptr;
};

struct MapiMessage {
    ULONG ulReserved = 0;
    const char* lpszSubject = nullptr;
    const char* lpszNoteText = nullptr;
    const char* lpszMessageType = nullptr;
    const char* lpszDateReceived = nullptr;
    const char* lpszConversationID = nullptr;
    ULONG flFlags = 0;
    MapiRecipDesc* lpOriginator = nullptr;
    ULONG nRecipCount = 0;
    MapiRecipDesc* lpRecips = nullptr;
    ULONG nFileCount = 0;
    MapiFileDesc* lpFiles = nullptr;
};

static_assert(sizeof(void*) != 8 || (sizeof(MapiRecipDesc) == 40 && sizeof(MapiFileDesc) == 40 &&
                                     sizeof(MapiMessage) == 96));

constexpr ULONG MAPI_TO = 1;
constexpr ULONG MAPI_NO_POSITION = 0xFFFFFFFF;  // the attachment has no place in the body

constexpr ULONG MAPI_LOGON_UI = 0x1;
constexpr ULONG MAPI_DIALOG = 0x8;

constexpr ULONG SUCCESS_SUCCESS = 0;
constexpr ULONG MAPI_USER_ABORT = 1;
constexpr ULONG MAPI_E_FAILURE = 2;
constexpr ULONG MAPI_E_ATTACHMENT_NOT_FOUND = 11;
constexpr ULONG MAPI_E_ATTACHMENT_OPEN_FAILURE = 12;
constexpr ULONG MAPI_E_ATTACHMENT_WRITE_FAILURE = 13;
constexpr ULONG MAPI_E_UNKNOWN_RECIPIENT = 14;
constexpr ULONG MAPI_E_BAD_RECIPTYPE = 15;
constexpr ULONG MAPI_E_INVALID_MESSAGE = 17;
constexpr ULONG MAPI_E_TEXT_TOO_LARGE = 18;
constexpr ULONG MAPI_E_NOT_SUPPORTED = 26;

// MAPISendMail of a mail library. `session` 0 stands for none, `window` is the handle of the window
// to which the compose window is modal, `reserved` is 0.
// Returns:  SUCCESS_SUCCESS, MAPI_USER_ABORT, or why not.
using MapiSendMail = ULONG (*)(std::uintptr_t session, std::uintptr_t window, MapiMessage* message,
                               ULONG flags, ULONG reserved);

}  // namespace orvo
