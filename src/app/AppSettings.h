#pragma once

#include <QStringList>

// The command line, one entry per argument, the program name included. Options are whole,
// case-sensitive entries anywhere on the line, even in the places of devPath or devName.
class AppSettings
{
public:
    AppSettings(int argc, char** argv);
    virtual ~AppSettings();

    const QStringList& arguments() const { return args; }
    bool has(const QString& option) const { return args.contains(option); }

private:
    QStringList args;
};
