#include "io/InkCommands.h"

namespace {

struct Action
{
    const char* tag;
    const char* name;
};

const Action kActions[] = {
    {InkCommands::kTestPage, "test page"},
    {InkCommands::kClean, "cartridge cleaning"},
    {InkCommands::kAlignPage, "alignment page"},
    {InkCommands::kAlignChoice, "alignment choice"},
    {InkCommands::kScanPage, "alignment page for the scanner"},
    {InkCommands::kScanAlign, "scan and align"},
};

} // namespace

QByteArray InkCommands::block(const char* tag, const QByteArray& parameters)
{
    if (qstrlen(tag) != kTagSize || parameters.size() > kMaxParameters)
        return QByteArray();
    return QByteArray(kMarker) + tag + char('0' + parameters.size()) + parameters;
}

QByteArray InkCommands::testPage()
{
    return block(kTestPage);
}

QByteArray InkCommands::clean()
{
    return block(kClean);
}

QByteArray InkCommands::alignmentPage(bool photoInk)
{
    return block(kAlignPage, photoInk ? "1" : "0");
}

QByteArray InkCommands::alignmentChoice(const QByteArray& patterns, bool photoInk)
{
    if (patterns.size() != alignmentRows(photoInk))
        return QByteArray();
    for (char letter : patterns) {
        if (letter < kFirstPattern || letter >= kFirstPattern + kPatternCount)
            return QByteArray();
    }
    return block(kAlignChoice, patterns);
}

QByteArray InkCommands::scanPage()
{
    return block(kScanPage);
}

QByteArray InkCommands::scanAlign()
{
    return block(kScanAlign);
}

QString InkCommands::actionName(const QByteArray& tag)
{
    for (const Action& action : kActions) {
        if (tag == action.tag)
            return QString::fromLatin1(action.name);
    }
    return QString();
}
