#pragma once

#include <QCommandLineParser>
#include <QStringList>

// One tavctl command line: the command, its options and its operands, checked against what
// that command takes. --help of each command comes from the same table.
class CtlArguments
{
public:
    static QStringList commands();

    // False on a usage error, with the message on stderr; `helpShown` when --help was asked.
    bool parse(const QStringList& arguments, bool* helpShown);

    QString command() const { return _command; }
    bool isSet(const QString& option) const { return parser.isSet(option); }
    QString value(const QString& option) const { return parser.value(option); }
    QStringList operands() const { return parser.positionalArguments(); }

    // The command's options, for completion.
    static QStringList optionsOf(const QString& command);
    static QString overview();

private:
    void describe(const QString& command);

    QString _command;
    QCommandLineParser parser;
};
