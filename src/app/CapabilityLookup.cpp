#include "app/CapabilityLookup.h"

#include "app/Log.h"
#include "xml/CapabilityParser.h"

#include <QFile>
#include <QStringList>

namespace {

// The device name as the command line gives it, in the list's lower case and with blanks.
QString lookupKey(const QString& devName)
{
    return devName.toLower().replace(QLatin1Char('_'), QLatin1Char(' '));
}

// The list's keys hold "_" for blanks; compare in one form.
QStringList matchingModels(const CapabilityParser::CapabilityMap& models, const QString& key)
{
    QStringList matches;
    for (auto it = models.cbegin(); it != models.cend(); ++it) {
        QString name = it.key();
        if (name.replace(QLatin1Char('_'), QLatin1Char(' ')).contains(key))
            matches.append(it.key());
    }
    return matches;
}

} // namespace

Capabilities lookupCapabilities(const QString& capabilitiesFile, const QString& devName)
{
    Capabilities caps;
    QFile file(capabilitiesFile);
    if (!file.exists())
        return caps;
    CapabilityParser parser;
    parser.open(&file);
    const CapabilityParser::CapabilityMap capsList = parser.parse();

    const QString key = lookupKey(devName);
    const QStringList matches = matchingModels(capsList, key);
    if (matches.isEmpty())
        return caps;
    if (matches.size() > 1)
        qWarning("Multiple models match the same name <%s>: <%s>", qPrintable(key),
                 qPrintable(matches.join(QLatin1Char('|'))));
    const auto it = capsList.constFind(matches.first());
    TAV_ASSERT_TEXT(it != capsList.end(), "it != capsList.end()");
    if (it != capsList.cend())
        caps = it.value();
    return caps;
}
