// Module: what resources are taken from.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

enum class ResourceKind { Bitmap, Icon, Cursor, Menu, Dialog };

// A library's own resources, or the language module that stands before them. A module is read only.
// May be used from several threads at once.
class ORVO_API Module {
public:
    virtual ~Module() = default;

    // Sets `utf8` to the string of that number.
    // Returns:  false, with `utf8` untouched, where the module holds none.
    virtual bool FindString(unsigned number, std::string& utf8) const = 0;

    // The text of the resource, as its file has it; it lives as long as the module. Empty where the
    // module holds none.
    virtual std::string_view FindResource(ResourceKind, unsigned) const { return {}; }

    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

protected:
    Module() = default;
};

// A module's handle; null stands for no module.
using HINSTANCE = const Module*;

}  // namespace orvo
