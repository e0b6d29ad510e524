#include "xml/SettingLocator.h"

#include "xml/ElementType.h"
#include "xml/SettingsParser.h"

SettingLocator::SettingLocator(const QStringList& ids)
    : wanted(ids.begin(), ids.end())
    , wantsAbout(ids.contains(FixedIds::AboutElement))
{
    for (const QString& id : ids)
        wantedNames.append(id.toUtf8());
    for (const QByteArray& name : std::as_const(wantedNames))
        wantedTags.insert(QByteArrayView(name));
}

bool SettingLocator::locate(const QByteArray& document)
{
    text = document.constData();
    if (!run(document) || declined)
        return false;
    // The reader takes "root/IDSInfo" when there is one, else "root/PrinterSettingsInfo".
    chosen = seen[rIds] ? rIds : rPrinterSettings;
    return seen[chosen] && rootBuilt[chosen];
}

QByteArrayView SettingLocator::markup(const QString& id) const
{
    return chosen == rOutside ? QByteArrayView() : found[chosen].value(id);
}

bool SettingLocator::kindAttributes(const Attributes& attributes, QString* keyword,
                                    QString* supported)
{
    for (const Attribute& attribute : attributes) {
        QString* slot = attribute.name == QByteArrayView("TYPE")        ? keyword
                        : attribute.name == QByteArrayView("SUPPORTED") ? supported
                                                                        : nullptr;
        if (!slot)
            continue;
        if (attribute.value.contains('&'))
            return false;
        *slot = QString::fromUtf8(attribute.value);
    }
    return true;
}

void SettingLocator::startElement(QByteArrayView name, const Attributes& attributes,
                                  qsizetype begin, bool empty)
{
    Open open;
    open.begin = begin;
    if (stack.isEmpty()) {
        // The reader looks for its paths under "root" only.
        declined = declined || name != QByteArrayView("root");
    } else if (stack.size() == 1) {
        enterRoot(name, attributes, &open);
    } else {
        const Open& parent = stack.last();
        if (parent.region == rDependencies && stack.size() == 2)
            _declared.insert(QString::fromUtf8(name));
        // What kind a leaf is matters only when it is wanted.
        else if (parent.holdsElements && (!empty || wantsAbout || wantedTags.contains(name)))
            enterSetting(parent, name, attributes, &open);
    }
    stack.append(open);
}

void SettingLocator::enterRoot(QByteArrayView name, const Attributes& attributes, Open* open)
{
    const Region region = name == QByteArrayView("IDSInfo")               ? rIds
                          : name == QByteArrayView("PrinterSettingsInfo") ? rPrinterSettings
                          : name == QByteArrayView("Dependencies")        ? rDependencies
                                                                          : rOutside;
    // Only the first of each counts, as a path lookup finds it.
    if (region == rOutside || seen[region])
        return;
    seen[region] = true;
    open->region = region;
    if (region == rDependencies)
        return;
    Open none;
    none.region = region;
    none.holdsElements = true;
    enterSetting(none, name, attributes, open);
    rootBuilt[region] = open->level == 0;
}

void SettingLocator::enterSetting(const Open& parent, QByteArrayView name,
                                  const Attributes& attributes, Open* open)
{
    open->region = parent.region;
    const QString tag = QString::fromUtf8(name);
    QString keyword("");
    QString supported;
    if (!kindAttributes(attributes, &keyword, &supported)) {
        declined = true;
        return;
    }
    const int type = SettingsParser::typeToBuild(tag, keyword, supported, parent.level);
    if (type == etUnknown)
        return;
    open->level = parent.level + 1;
    open->holdsElements = type == etGroup || type == etForm;
    const QString id = type == etAbout ? FixedIds::AboutElement : tag;
    if (wanted.contains(id) && !found[parent.region].contains(id)) {
        open->wanted = id;
        found[parent.region].insert(id, QByteArrayView());
    }
}

void SettingLocator::endElement(qsizetype end)
{
    const Open open = stack.last();
    stack.removeLast();
    if (!open.wanted.isEmpty())
        found[open.region].insert(open.wanted, QByteArrayView(text + open.begin, end - open.begin));
}
