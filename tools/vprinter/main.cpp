// tav-vprinter: a USB multi-function printer's data channel on a pseudo-terminal, for
// trying the settings program without a printer and for tests.

#include "VirtualPrinter.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <csignal>
#include <cstdio>

namespace {

VirtualPrinter* running = nullptr;

void onSignal(int)
{
    if (running)
        running->stop();
}

void installSignalHandlers()
{
    struct sigaction action
    {
    };
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
    signal(SIGPIPE, SIG_IGN);
}

struct Option
{
    const char* name;
    const char* help;
    const char* valueName;
};

const Option kOptions[] = {
    {"ids", "Speak the IDS framing instead of the TAV framing.", nullptr},
    {"state", "Keep the changed settings in <file> and serve them after a restart.", "file"},
    {"link", "Keep a symlink <path> pointing at the device.", "path"},
    {"mute", "Fault: read requests but never answer.", nullptr},
    {"short", "Fault: send only the first half of every reply.", nullptr},
    {"reject", "Fault: reject every change.", nullptr},
    {"slow", "Fault: send replies at <bytes> per second.", "bytes"},
    {"hangup", "Fault: hang up in the middle of the specification text.", nullptr},
    {"huge", "Fault: announce a specification size of <bytes> (default 4294967295).", "bytes"},
    {"broken-xml", "Fault: serve the specification cut in half.", nullptr},
    {"garbage", "Fault: answer with random bytes instead of reply headers.", nullptr},
    {"ink-fail", "Fault: refuse every ink maintenance command; a scan reports failure.", nullptr},
};

bool readOptions(QCommandLineParser& parser, VirtualPrinterOptions& options, QString* error)
{
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 1) {
        *error = QStringLiteral("name one specification file");
        return false;
    }
    options.specificationFile = positional.first();
    options.stateFile = parser.value(QStringLiteral("state"));
    options.linkPath = parser.value(QStringLiteral("link"));
    options.ids = parser.isSet(QStringLiteral("ids"));
    options.mute = parser.isSet(QStringLiteral("mute"));
    options.shortReplies = parser.isSet(QStringLiteral("short"));
    options.rejectChanges = parser.isSet(QStringLiteral("reject"));
    options.hangUp = parser.isSet(QStringLiteral("hangup"));
    options.brokenXml = parser.isSet(QStringLiteral("broken-xml"));
    options.garbage = parser.isSet(QStringLiteral("garbage"));
    options.inkFail = parser.isSet(QStringLiteral("ink-fail"));
    bool ok = true;
    if (parser.isSet(QStringLiteral("slow"))) {
        options.bytesPerSecond = parser.value(QStringLiteral("slow")).toInt(&ok);
        if (!ok || options.bytesPerSecond <= 0) {
            *error = QStringLiteral("--slow needs a positive number of bytes per second");
            return false;
        }
    }
    if (parser.isSet(QStringLiteral("huge"))) {
        const QString value = parser.value(QStringLiteral("huge"));
        options.announcedSize = value.isEmpty() ? 0xFFFFFFFFu : value.toUInt(&ok);
        if (!ok || options.announcedSize == 0) {
            *error = QStringLiteral("--huge needs a positive size");
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tav-vprinter"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Emulates a USB printer's data channel on a pseudo-terminal and prints its path."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("specification"),
                                 QStringLiteral("The settings specification to serve."));
    for (const Option& option : kOptions) {
        QCommandLineOption entry(QString::fromLatin1(option.name),
                                 QString::fromLatin1(option.help));
        if (option.valueName)
            entry.setValueName(QString::fromLatin1(option.valueName));
        parser.addOption(entry);
    }
    // "--huge" alone announces 4 GB: accept it without a value.
    QStringList arguments = QCoreApplication::arguments();
    for (QString& argument : arguments) {
        if (argument == QLatin1String("--huge"))
            argument = QStringLiteral("--huge=4294967295");
    }
    parser.process(arguments);

    VirtualPrinterOptions options;
    QString error;
    if (!readOptions(parser, options, &error)) {
        fprintf(stderr, "tav-vprinter: %s\n", qPrintable(error));
        return 2;
    }

    VirtualPrinter printer(options);
    printer.setPathListener([](const QString& path) {
        printf("%s\n", qPrintable(path));
        fflush(stdout);
    });
    if (!printer.start(&error)) {
        fprintf(stderr, "tav-vprinter: %s\n", qPrintable(error));
        return 1;
    }
    running = &printer;
    installSignalHandlers();
    const int status = printer.run();
    running = nullptr;
    return status;
}
