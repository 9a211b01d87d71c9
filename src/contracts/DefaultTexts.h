// The category and the labels that a new store begins with, and how they are shown.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include <contracts/Category.h>
#include <contracts/StoreEngine.h>
#include <platform/Export.h>

namespace orvo {

struct DefaultText {
    TableKind table;
    StoreEngine::TextKind kind;
    int number;
    const char* text;
    unsigned shown;  // the module's text that says it in the user's language
};

inline constexpr std::array<DefaultText, 14> kDefaultTexts{{
    {TableKind::Address, StoreEngine::TextKind::Category, kNoCategory, kNoCategoryName, 279},
    {TableKind::ToDo, StoreEngine::TextKind::Category, kNoCategory, kNoCategoryName, 279},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 0, "Mobile", 33101},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 1, "Home", 33102},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 2, "Work", 33103},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 3, "Fax", 33104},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 4, "E-mail", 33105},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 5, "Web", 33106},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 6, "Pager", 33107},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 7, "Other", 33108},
    {TableKind::Address, StoreEngine::TextKind::CustomLabel, 1, "Custom 1", 33111},
    {TableKind::Address, StoreEngine::TextKind::CustomLabel, 2, "Custom 2", 33112},
    {TableKind::Address, StoreEngine::TextKind::CustomLabel, 3, "Custom 3", 33113},
    {TableKind::Address, StoreEngine::TextKind::CustomLabel, 4, "Custom 4", 33114},
}};

// Returns the module's text of that number, UTF-8; empty where there is none.
using ModuleTexts = std::string (*)(unsigned number);

// Where the default texts of the user's language come from: the module puts itself here while it
// is attached. Null before and after that; default texts are shown as they are stored then.
inline ORVO_API ModuleTexts& ShownDefaults() {
    static ModuleTexts texts = nullptr;
    return texts;
}

// What is shown for a stored text: the user's language's own where it is the default one of that
// number, else the text itself. Both are UTF-8.
ORVO_API std::string ShownText(StoreEngine::TextKind kind, int number, const std::string& stored);

}  // namespace orvo
