// The cards that other programs wrote, in the folder that ORVO_CORPORA names.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <exchange/lines/EntryReader.h>

namespace orvo {

// Gives:    null where no folder is named, and a test that needs them is to be skipped.
inline const char* FolderOfRealCards() {
    return std::getenv("ORVO_CORPORA");
}

// Calls `see` with each whole card, and the file in which it lies.
template <class See>
void ForEachRealCard(const See& see) {
    for (const auto& file : std::filesystem::recursive_directory_iterator(FolderOfRealCards())) {
        if (file.path().extension() != ".vcf") continue;
        std::ifstream stream(file.path(), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        EntryReader reader(text);
        for (Entry entry; reader.Next(entry);) {
            if (entry.kind == EntryKind::Card && entry.complete) see(entry, file.path());
        }
    }
}

}  // namespace orvo
