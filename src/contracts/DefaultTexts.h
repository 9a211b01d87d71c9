// The category and the labels that a new store begins with.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include <contracts/Category.h>
#include <contracts/StoreEngine.h>

namespace orvo {

struct DefaultText {
    TableKind table;
    StoreEngine::TextKind kind;
    int number;
    const char* text;
};

inline constexpr std::array<DefaultText, 14> kDefaultTexts{{
    {TableKind::Address, StoreEngine::TextKind::Category, kNoCategory, kNoCategoryName},
    {TableKind::ToDo, StoreEngine::TextKind::Category, kNoCategory, kNoCategoryName},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 0, "Mobile"},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 1, "Home"},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 2, "Work"},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 3, "Fax"},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 4, "E-mail"},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 5, "Web"},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 6, "Pager"},
    {TableKind::Address, StoreEngine::TextKind::PhoneLabel, 7, "Other"},
    {TableKind::Address, StoreEngine::TextKind::CustomLabel, 1, "Custom 1"},
    {TableKind::Address, StoreEngine::TextKind::CustomLabel, 2, "Custom 2"},
    {TableKind::Address, StoreEngine::TextKind::CustomLabel, 3, "Custom 3"},
    {TableKind::Address, StoreEngine::TextKind::CustomLabel, 4, "Custom 4"},
}};

}  // namespace orvo
