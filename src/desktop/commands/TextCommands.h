// A to-do's text, edited in the list and saved from there.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <desktop/commands/CommandContext.h>
#include <desktop/views/TextInPlace.h>

namespace orvo::desktop {

class TextCommands {
public:
    // The context outlives the commands.
    explicit TextCommands(CommandContext& context) : m_context(context) {}

    // Between these, while the views have their windows, the text can be edited.
    void Open();
    void Close() { m_field.reset(); }

    // Edits the text of the row that is selected. It is open from Open() on.
    void Begin() { m_field->Begin(); }
    // Rows have come, gone or moved.
    void Follow() { m_field->Follow(); }
    bool IsEditing() const { return m_field->IsOpen(); }
    // Saves what is being edited.
    // Returns:  false where that failed, and the field stays.
    bool Finish() { return !m_field || m_field->Finish(); }

private:
    bool Save(std::int64_t id, const std::string& was, const std::string& text);

    CommandContext& m_context;
    std::unique_ptr<TextInPlace> m_field;
};

}  // namespace orvo::desktop
