#include "xml/CapabilityParser.h"

#include "app/Log.h"

CapabilityParser::CapabilityMap CapabilityParser::parse() const
{
    CapabilityMap models;
    if (!isValid()) {
        TAV_LOG(9, "CapabilityParser::parse(): CapabilityParser is invalid");
        return models;
    }
    const QDomNode devices = find(QStringLiteral("root/Devices"));
    if (devices.isNull()) {
        TAV_LOG(9, "CapabilityParser::parse(): can't obtain root node");
        return models;
    }
    for (QDomNode node = devices.firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (!node.isElement()) {
            TAV_LOG(10, "Unexpected child node");
            continue;
        }
        const QDomElement model = node.toElement();
        const QString name = model.attribute(QStringLiteral("NAME"));
        if (name.isEmpty()) {
            TAV_LOG(10, "Unknown model");
            continue;
        }
        Capabilities caps;
        caps.network = flag(model, QStringLiteral("NETWORK"));
        caps.buyNowButton = flag(model, QStringLiteral("BUYNOWBUTTON"));
        caps.ids = flag(model, QStringLiteral("IDS"));
        models.insert(modelKey(name), caps);
    }
    return models;
}

QString CapabilityParser::modelKey(const QString& name)
{
    return name.toLower().replace(QLatin1Char(' '), QLatin1Char('_'));
}

bool CapabilityParser::flag(const QDomElement& model, const QString& attribute)
{
    return model.attribute(attribute, QStringLiteral("true")).toLower() != QLatin1String("false");
}
