// All that a store holds of a row, in one piece.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <contracts/StoreEngine.h>

namespace orvo::desktop {

struct WholeRow {
    StoredRow row;  // all but `fields`
    std::string fields;
    RowExtra extra;
};

// One text for each content, so that equal images are equal rows.
std::string ImageOf(TableKind kind, const StoredRow& row, const RowExtra& extra);
// Requires: an image that ImageOf gave.
WholeRow RowOfImage(std::string_view image);

// Stands for an image where that itself isn't needed.
std::uint64_t HashOf(std::string_view image);

// Reads the image of a stored row; nothing where the store holds no such row, which is Ok here.
StoreStatus ReadImage(StoreEngine& engine, TableKind kind, std::int64_t id,
                      std::optional<std::string>& image);

}  // namespace orvo::desktop
