// The text of a settings file: its values, and a change of one that keeps the rest.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace orvo {

// Names and values are as spelled in the file. Every byte sequence is a settings file: a line that
// is no heading, no value and no comment counts for nothing and stays.
class SettingsText {
public:
    explicit SettingsText(std::string bytes = {});

    const std::string& Bytes() const { return m_bytes; }

    // The first value of that name; valid until Set.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

    // Whether there is a heading of that name, or one that begins so.
    bool HasSection(std::string_view name) const { return FindSection(name) != nullptr; }
    bool HasSectionFrom(std::string_view start) const;

    // Replaces that value in its place; a new key goes behind the last one of its section, and a
    // new section to the end. New lines end as the first line of the file does.
    void Set(std::string_view section, std::string_view key, std::string_view value);

    // Adds the heading of a section that isn't there yet.
    void AddSection(std::string_view section);

    // Removes the lines of all values of that name.
    void Remove(std::string_view section, std::string_view key);

private:
    struct Range {
        std::size_t begin;
        std::size_t length;
    };
    struct Section {
        std::map<std::string, Range, std::less<>> values;
        std::size_t end = 0;  // where the next line of the section goes
    };

    const Section* FindSection(std::string_view name) const;
    Section* ReadLine(Range line, std::size_t next, Section* section);
    std::string_view LineEnd() const;
    std::string Heading(std::string_view section) const;
    void InsertLines(std::size_t position, std::string lines);
    void Index();

    std::string m_bytes;
    std::map<std::string, Section, std::less<>> m_sections;
};

}  // namespace orvo
