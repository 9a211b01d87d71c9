// The sections of the user's settings in which each view keeps its columns or its size.
// SPDX-License-Identifier: MIT
#pragma once

namespace orvo {

constexpr const char* kListSection = "AddressList";
constexpr const char* kCardSection = "AddressCards";
constexpr const char* kTodoSection = "ToDoList";

}  // namespace orvo
