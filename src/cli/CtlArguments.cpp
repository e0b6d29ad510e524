#include "cli/CtlArguments.h"

#include "cli/CtlMessages.h"

#include <cstdio>

namespace {

struct CommandSpec
{
    const char* name;
    const char* operands;
    const char* summary;
    const char* options; // names separated by blanks, value-taking ones end in '='
};

const CommandSpec kCommands[] = {
    {"list", "", QT_TRANSLATE_NOOP("CtlMessages", "List the USB printers connected now."), "json"},
    {"show", "DEV",
     QT_TRANSLATE_NOOP("CtlMessages", "Show the settings as a tree with what each allows."),
     "spec= model= group= changed json"},
    {"get", "DEV ID...", QT_TRANSLATE_NOOP("CtlMessages", "Print the values of settings."),
     "spec= model= json"},
    {"set", "DEV ID=VALUE...",
     QT_TRANSLATE_NOOP("CtlMessages", "Check values and send them in one change document."),
     "spec= model= dry-run"},
    {"export", "DEV", QT_TRANSLATE_NOOP("CtlMessages", "Write a backup of every writable setting."),
     "spec= model= o="},
    {"import", "DEV FILE",
     QT_TRANSLATE_NOOP("CtlMessages",
                       "Send the differences between a backup and the device in one change "
                       "document."),
     "spec= model= dry-run group= force include-identity"},
    {"diff", "A B",
     QT_TRANSLATE_NOOP("CtlMessages", "Compare two devices, specification or backup files."),
     "model="},
};

const CommandSpec* find(const QString& name)
{
    for (const CommandSpec& spec : kCommands) {
        if (name == QLatin1String(spec.name))
            return &spec;
    }
    return nullptr;
}

QString optionHelp(const QString& name)
{
    if (name == QLatin1String("json"))
        return CtlMessages::tr("Print JSON.");
    if (name == QLatin1String("spec"))
        return CtlMessages::tr("Read this settings specification file instead of a device.");
    if (name == QLatin1String("model"))
        return CtlMessages::tr("The printer model, when the device does not report it.");
    if (name == QLatin1String("group"))
        return CtlMessages::tr("Only the settings under this group.");
    if (name == QLatin1String("changed"))
        return CtlMessages::tr("Only settings that differ from their factory value.");
    if (name == QLatin1String("dry-run"))
        return CtlMessages::tr("Print the change document and send nothing.");
    if (name == QLatin1String("o"))
        return CtlMessages::tr("Write to this file instead of standard output.");
    if (name == QLatin1String("force"))
        return CtlMessages::tr("Accept a backup of another model.");
    return CtlMessages::tr("Also import the settings that identify one printer.");
}

} // namespace

QStringList CtlArguments::commands()
{
    QStringList out;
    for (const CommandSpec& spec : kCommands)
        out.append(QLatin1String(spec.name));
    return out;
}

QStringList CtlArguments::optionsOf(const QString& command)
{
    QStringList out;
    if (const CommandSpec* spec = find(command)) {
        for (QString name : QString::fromLatin1(spec->options).split(QLatin1Char(' '))) {
            name.remove(QLatin1Char('='));
            out.append(name.size() == 1 ? QLatin1Char('-') + name : QLatin1String("--") + name);
        }
    }
    out.append(QStringLiteral("--help"));
    return out;
}

QString CtlArguments::overview()
{
    QString text = CtlMessages::tr("Usage: tavctl COMMAND [OPTIONS]\n\nCommands:\n");
    for (const CommandSpec& spec : kCommands) {
        text += QStringLiteral("  %1 %2\n      %3\n")
                    .arg(QLatin1String(spec.name), QLatin1String(spec.operands),
                         CtlMessages::tr(spec.summary));
    }
    text += CtlMessages::tr(
        "\nDEV is a device node such as /dev/usb/lp0 or, for a USB printer "
        "without one, usb:BUS:ADDR (usb:001:002) or usb:serial=SERIAL. "
        "'tavctl COMMAND --help' describes one command.\nExit status: 0 done, 1 usage, 2 a value "
        "refused, 3 the device refused, 4 the device unreachable.\n");
    return text;
}

void CtlArguments::describe(const QString& command)
{
    const CommandSpec* spec = find(command);
    parser.setApplicationDescription(CtlMessages::tr(spec->summary));
    parser.addPositionalArgument(
        QStringLiteral("%1 %2").arg(command, QLatin1String(spec->operands)), QString());
    for (QString name : QString::fromLatin1(spec->options).split(QLatin1Char(' '))) {
        const bool takesValue = name.endsWith(QLatin1Char('='));
        name.remove(QLatin1Char('='));
        parser.addOption(takesValue ? QCommandLineOption(name, optionHelp(name), name.toUpper())
                                    : QCommandLineOption(name, optionHelp(name)));
    }
    parser.addOption(QCommandLineOption(QStringLiteral("debug"), CtlMessages::tr("Verbose log.")));
    parser.addHelpOption();
}

bool CtlArguments::parse(const QStringList& arguments, bool* helpShown)
{
    *helpShown = false;
    _command = arguments.value(1);
    if (_command == QLatin1String("--help") || _command == QLatin1String("-h")) {
        std::fputs(overview().toLocal8Bit().constData(), stdout);
        *helpShown = true;
        return true;
    }
    // For the shell's completion: the options of a command, one a line.
    if (_command == QLatin1String("__options")) {
        for (const QString& option : optionsOf(arguments.value(2)))
            std::printf("%s\n", qPrintable(option));
        *helpShown = true;
        return true;
    }
    if (!find(_command)) {
        CtlMessages::error(_command.isEmpty()
                               ? CtlMessages::tr("no command given")
                               : CtlMessages::tr("unknown command '%1'").arg(_command));
        std::fputs(overview().toLocal8Bit().constData(), stderr);
        return false;
    }
    describe(_command);
    QStringList rest = arguments;
    rest.removeAt(1);
    if (!parser.parse(rest)) {
        CtlMessages::error(parser.errorText());
        return false;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        std::fputs(parser.helpText().toLocal8Bit().constData(), stdout);
        *helpShown = true;
    }
    return true;
}
