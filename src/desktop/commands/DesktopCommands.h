// All that menus, keys and the views can ask for.
// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/commands/BackupCommands.h>
#include <desktop/commands/EditCommands.h>
#include <desktop/commands/ExportCommands.h>
#include <desktop/commands/FormCommands.h>
#include <desktop/commands/GroupCommands.h>
#include <desktop/commands/ImportCommands.h>
#include <desktop/commands/MailCommands.h>
#include <desktop/commands/OptionCommands.h>
#include <desktop/commands/PartCommands.h>
#include <desktop/commands/PluginCommands.h>
#include <desktop/commands/ReminderCommands.h>
#include <desktop/commands/TextCommands.h>

namespace orvo::desktop {

struct DesktopCommands {
    // The context outlives the commands.
    explicit DesktopCommands(CommandContext& context)
        : forms(context),
          texts(context),
          edits(context),
          imports(context),
          exports(context),
          backups(context),
          options(context),
          mail(context),
          groups(context),
          parts(context),
          plugins(context),
          reminders(context, forms) {}

    FormCommands forms;
    TextCommands texts;
    EditCommands edits;
    ImportCommands imports;
    ExportCommands exports;
    BackupCommands backups;
    OptionCommands options;
    MailCommands mail;
    GroupCommands groups;
    PartCommands parts;
    PluginCommands plugins;
    ReminderCommands reminders;
};

}  // namespace orvo::desktop
