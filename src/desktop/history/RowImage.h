// All that a store holds of a row, in one piece.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <contracts/StoreEngine.h>

namespace orvo::desktop {

struct WholeRow {
    StoredRow row;  // all but `fields`
    std::string fields;
    RowExtra extra;
};

// A row in as little memory as it takes. Equal images are equal rows.
struct RowImage {
    std::string bytes;
    std::vector<SharedText> shared;  // the same texts as those of other rows
};

RowImage ImageOf(TableKind kind, const StoredRow& row, const RowExtra& extra);
// Requires: an image that ImageOf has made.
WholeRow RowOfImage(const RowImage& image);

// Stands for an image where that itself isn't needed.
std::uint64_t HashOf(const RowImage& image);

// Reads the image of a stored row; nothing where the store holds no such row, which is Ok here.
StoreStatus ReadImage(StoreEngine& engine, TableKind kind, std::int64_t id,
                      std::optional<RowImage>& image);

}  // namespace orvo::desktop
