// What the user looks for among the entries of a view, and how much of them is read.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include <people/FindText.h>

namespace orvo::desktop {

class EntryFind {
public:
    virtual ~EntryFind() = default;

    // From now on only rows show that hold what is looked for; all do for an empty query. Masked
    // rows hold nothing.
    virtual void SetFind(const FindQuery& query) = 0;
    virtual bool IsFinding() const = 0;
    // False for rows that are chosen in another way.
    virtual bool IsLooking() const { return IsFinding(); }
    // How many rows there would be if nothing were looked for.
    virtual int CountOfAll() = 0;

    // False while more rows may come, as what they show or are found by isn't read yet.
    virtual bool IsWhole() const = 0;
    // Reads for a moment, and shows the rows once all is read.
    virtual void ReadOn() = 0;
    // How much is read, of 100, where that can be told.
    virtual std::optional<int> PercentRead() const { return std::nullopt; }
};

}  // namespace orvo::desktop
