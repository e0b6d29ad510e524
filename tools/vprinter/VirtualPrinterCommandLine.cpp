#include "vprinter/VirtualPrinterCommandLine.h"

namespace {

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
    {"late-first", "Fault: answer the first request only after <ms> milliseconds.", "ms"},
    {"hangup", "Fault: hang up in the middle of the specification text.", nullptr},
    {"huge", "Fault: announce a specification size of <bytes> (default 4294967295).", "bytes"},
    {"broken-xml", "Fault: serve the specification cut in half.", nullptr},
    {"garbage", "Fault: answer with random bytes instead of reply headers.", nullptr},
    {"ink-fail", "Fault: refuse every ink maintenance command; a scan reports failure.", nullptr},
};

const QString kHuge = QStringLiteral("--huge");
constexpr uint32_t kHugeDefault = 0xFFFFFFFFu;

} // namespace

VirtualPrinterCommandLine::VirtualPrinterCommandLine(const QString& description)
{
    parser.setApplicationDescription(description);
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
}

void VirtualPrinterCommandLine::addOption(const QCommandLineOption& option)
{
    parser.addOption(option);
}

VirtualPrinterCommandLine::Outcome VirtualPrinterCommandLine::parse(const QStringList& arguments)
{
    parsed = VirtualPrinterOptions();
    problem.clear();
    if (!parser.parse(withHugeValue(arguments))) {
        fail(parser.errorText());
        return Outcome::Error;
    }
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all")))
        return Outcome::Help;
    return readOptions() ? Outcome::Run : Outcome::Error;
}

// "--huge" is the one option whose value may be left out. Written apart, the next argument is
// its value only when it is a number, so that "--huge spec.xml" still names the specification.
QStringList VirtualPrinterCommandLine::withHugeValue(const QStringList& arguments)
{
    QStringList result;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--")) {
            result += arguments.mid(i);
            break;
        }
        if (argument != kHuge) {
            result += argument;
            continue;
        }
        bool number = false;
        if (i + 1 < arguments.size())
            arguments.at(i + 1).toUInt(&number);
        result +=
            kHuge + QLatin1Char('=') + (number ? arguments.at(++i) : QString::number(kHugeDefault));
    }
    return result;
}

bool VirtualPrinterCommandLine::readOptions()
{
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 1)
        return fail(QStringLiteral("name one specification file"));
    parsed.specificationFile = positional.first();
    parsed.stateFile = parser.value(QStringLiteral("state"));
    parsed.linkPath = parser.value(QStringLiteral("link"));
    parsed.ids = parser.isSet(QStringLiteral("ids"));
    parsed.mute = parser.isSet(QStringLiteral("mute"));
    parsed.shortReplies = parser.isSet(QStringLiteral("short"));
    parsed.rejectChanges = parser.isSet(QStringLiteral("reject"));
    parsed.hangUp = parser.isSet(QStringLiteral("hangup"));
    parsed.brokenXml = parser.isSet(QStringLiteral("broken-xml"));
    parsed.garbage = parser.isSet(QStringLiteral("garbage"));
    parsed.inkFail = parser.isSet(QStringLiteral("ink-fail"));
    return readPositive(QStringLiteral("slow"), QStringLiteral("bytes per second"),
                        &parsed.bytesPerSecond) &&
           readPositive(QStringLiteral("late-first"), QStringLiteral("milliseconds"),
                        &parsed.lateFirstMs) &&
           readSize(QStringLiteral("huge"), &parsed.announcedSize);
}

bool VirtualPrinterCommandLine::readPositive(const QString& name, const QString& unit, int* value)
{
    if (!parser.isSet(name))
        return true;
    bool ok = false;
    *value = parser.value(name).toInt(&ok);
    return (ok && *value > 0) ||
           fail(QStringLiteral("--%1 needs a positive number of %2").arg(name, unit));
}

bool VirtualPrinterCommandLine::readSize(const QString& name, uint32_t* value)
{
    if (!parser.isSet(name))
        return true;
    bool ok = false;
    *value = parser.value(name).toUInt(&ok);
    return (ok && *value > 0) || fail(QStringLiteral("--%1 needs a positive size").arg(name));
}

// Always false, so that a check reads `return ok || fail(...)`.
bool VirtualPrinterCommandLine::fail(const QString& text)
{
    problem = text;
    return false;
}
