#pragma once

#include "vprinter/VirtualPrinterOptions.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

// The virtual printer's command line: reads the arguments into VirtualPrinterOptions and
// writes the --help text. Every option that takes a value accepts it as the next argument
// ("--slow 100") or joined ("--slow=100"). Other programs that serve a printer's data channel
// (a USB gadget, for example) parse their arguments with it and may add options of their own.
class VirtualPrinterCommandLine
{
public:
    enum class Outcome
    {
        Run,  // options() holds what to serve
        Help, // --help was given; show helpText()
        Error // error() says what is wrong
    };

    explicit VirtualPrinterCommandLine(const QString& description);

    // Before parse(): an option of the program itself, read back through commandLine().
    void addOption(const QCommandLineOption& option);

    // `arguments` starts with the program name, as QCoreApplication::arguments() does.
    Outcome parse(const QStringList& arguments);

    const VirtualPrinterOptions& options() const { return parsed; }
    const QString& error() const { return problem; }
    QString helpText() const { return parser.helpText(); }
    const QCommandLineParser& commandLine() const { return parser; }

private:
    static QStringList withHugeValue(const QStringList& arguments);
    bool readOptions();
    bool readPositive(const QString& name, const QString& unit, int* value);
    bool readSize(const QString& name, uint32_t* value);
    bool fail(const QString& text);

    QCommandLineParser parser;
    VirtualPrinterOptions parsed;
    QString problem;
};
