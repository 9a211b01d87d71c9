// Import into the store, and what becomes of entries that it holds twice.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <string>
#include <vector>

#include <desktop/commands/CommandContext.h>
#include <desktop/import/DuplicatesDialog.h>

namespace orvo {
struct FilesToImport;
}

namespace orvo::desktop {

class ImportCommands {
public:
    // The context outlives the commands.
    explicit ImportCommands(CommandContext& context);

    void ChooseFiles();
    // Takes in card and calendar files, and those of folders, and says what became of them. While
    // others are taken in, these wait.
    void Import(const std::vector<std::string>& paths);
    // The same once the event loop is back.
    void ImportLater(const std::vector<std::string>& files);
    bool IsImporting() const { return m_isImporting; }

    void FindDuplicatesOfStore();

private:
    bool AgreesToImport(const FilesToImport& found);
    void ShowImported(const ImportResult& result);
    void OfferDuplicates(const ImportResult& result);
    bool ComparesPrivate() const;
    void ReviewDuplicates(const std::vector<DuplicatePair>& pairs, DuplicateOrigin origin);

    CommandContext& m_context;
    std::vector<std::string> m_waiting;
    QTimer m_timer;  // runs while there are some
    bool m_isImporting = false;
};

}  // namespace orvo::desktop
