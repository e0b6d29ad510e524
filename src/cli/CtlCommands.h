#pragma once

#include "cli/CtlArguments.h"
#include "cli/CtlSource.h"

#include <memory>

class SettingsEdit;

// Runs one parsed tavctl command and answers its exit status.
class CtlCommands
{
public:
    CtlCommands(const CtlArguments& arguments, const QString& shareDir);

    CtlStatus run();

private:
    CtlStatus list();
    CtlStatus show();
    CtlStatus get();
    CtlStatus set();
    CtlStatus exportBackup();
    CtlStatus importBackup();
    CtlStatus diff();

    // The device operand (taken off the operands) or --spec; null after a usage error.
    // Commands that change the device take --spec only with --dry-run.
    std::unique_ptr<CtlSource> openSource(bool changes);
    CtlStatus usage(const QString& message) const;
    // Each refusal on stderr; csValueRefused when there was one.
    static CtlStatus reportRefusals(const SettingsEdit& edit);
    // Sends the edit's changes or, with --dry-run, prints them.
    CtlStatus sendChanges(CtlSource& source, SettingsEdit& edit);
    bool underGroup(const Element* element, const QString& group) const;

    const CtlArguments& arguments;
    QString shareDir;
    QStringList operands;
};
