// A to-do's text, edited in the list and saved from there.
// SPDX-License-Identifier: MIT
#include <desktop/commands/TextCommands.h>
#include <desktop/parts/PartQuestions.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

void TextCommands::Open() {
    m_field = std::make_unique<TextInPlace>(
        m_context.Frame().ToDos().List(),
        [this](std::int64_t id, const std::string& was, const std::string& text) {
            return Save(id, was, text);
        });
}

bool TextCommands::Save(std::int64_t id, const std::string& was, const std::string& text) {
    StoreSession& session = m_context.Session();
    CToDoRecord record(session.ToDos());
    // There is nothing left that the text could be of.
    if (!m_context.IsFound(session.ToDos().Find(id, record))) return true;
    const std::string_view theirs = record.DescriptionUtf8();
    if (theirs != was && theirs != text && !MayReplaceText(&m_context.Window(), theirs)) {
        return true;
    }
    const std::string failure = session.Change(Text("Edit to-do").toStdString(),
                                               [&] { return record.SetDescriptionUtf8(text); });
    m_context.Frame().Entries().Refill();
    if (!failure.empty()) {
        m_context.Refuse(Text("Nothing was changed.") + "\n\n" + ProblemText(failure));
    }
    return failure.empty();
}

}  // namespace orvo::desktop
