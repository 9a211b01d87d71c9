// An address list whose insides are in reach, with English texts and settings of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <stdlib.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/settings/SettingsFixture.h>
#include <platform/text/CodePage.h>
#include <platform/window/RecordingCanvas.h>
#include <platform/window/WindowFixture.h>
#include <support/AddressFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {

class AddressListInReach : public CDetailViewAddrList {
public:
    using CDetailViewAddrList::DrawColumn;
    using CDetailViewAddrList::FormatAddress;
    using CDetailViewAddrList::FormatPhone;
    using CDetailViewAddrList::m_aColumns;
    using CDetailViewAddrList::TrimToSingleLine;
    using CDetailViewAddrList::TruncateName;

    // The control's number of a shown column; -1 for a hidden one.
    int IndexOf(int id) {
        for (int index = 0; index < GetHeaderCtrl()->GetItemCount(); ++index) {
            if (SubItemFromIndex(index) == id) return index;
        }
        return -1;
    }
};

// The module's texts in English, whatever the locale.
class EnglishTexts {
public:
    EnglishTexts() {
        ::setenv("ORVO_LANGUAGE_DIR", "/nowhere", 1);
        OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
    }
    ~EnglishTexts() {
        OrvoShareMain(OwnModule(), DLL_PROCESS_DETACH);
        ::unsetenv("ORVO_LANGUAGE_DIR");
    }
    EnglishTexts(const EnglishTexts&) = delete;
    EnglishTexts& operator=(const EnglishTexts&) = delete;
};

// A list that no heading has been shown in yet.
class AddressListFixture : public SettingsFixture {
protected:
    explicit AddressListFixture(const char* tag = "en-US", unsigned codePage = kUtf8CodePage)
        : locale(tag, codePage) {
        list = NewList();
    }

    // Set up as a host does, but for the heading.
    std::unique_ptr<AddressListInReach> NewList() {
        auto made = std::make_unique<AddressListInReach>();
        made->Create(LVS_REPORT, {0, 0, 800, 400}, nullptr, 0);
        made->Initialize(&addresses.table, nullptr);
        return made;
    }

    static CString FromUtf8(std::string_view utf8) {
        CString text;
        CodePage::System().FromUtf8(utf8, text.Bytes());
        return text;
    }

    LocaleInForce locale;
    EnglishTexts texts;
    SystemInForce system;
    AddressFixture addresses;
    std::unique_ptr<AddressListInReach> list;
};

}  // namespace orvo
