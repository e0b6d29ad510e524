#include "xml/BackupDocument.h"

#include "elements/AboutElement.h"
#include "elements/ConcreteElement.h"
#include "elements/InputRules.h"
#include "elements/TextElement.h"

#include <QCoreApplication>
#include <QDomElement>

namespace {

const QString kRootTag = QStringLiteral("TavolorBackup");
const QString kFormat = QStringLiteral("1");

QString tr(const char* text)
{
    return QCoreApplication::translate("BackupDocument", text);
}

} // namespace

bool BackupDocument::collect(Element* element, void* data)
{
    auto* backup = static_cast<BackupDocument*>(data);
    if (const auto* about = qobject_cast<AboutElement*>(element)) {
        if (backup->deviceVersion.isEmpty())
            backup->deviceVersion = about->aboutText().trimmed();
    } else if (const auto* text = qobject_cast<TextElement*>(element)) {
        if (element->id().contains(QLatin1String("Version")))
            backup->deviceVersion +=
                QStringLiteral("; %1: %2").arg(element->id(), text->textLabel());
    } else if (InputRules::isWritable(element)) {
        // The value as the device sent it: the reader empties values its rules refuse.
        backup->values.append({element->id(), qobject_cast<ConcreteElement*>(element)->initial()});
    }
    return true;
}

void BackupDocument::takeFrom(Element* root)
{
    values.clear();
    deviceVersion.clear();
    if (root)
        root->iterateElements(collect, this);
}

QByteArray BackupDocument::toXml()
{
    doc = QDomDocument();
    doc.appendChild(doc.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    QDomElement top = doc.createElement(kRootTag);
    top.setAttribute(QStringLiteral("format"), kFormat);
    doc.appendChild(top);
    const auto addText = [this, &top](const QString& tag, const QString& text) {
        top.appendChild(doc.createElement(tag)).appendChild(doc.createTextNode(text));
    };
    addText(QStringLiteral("Model"), model);
    addText(QStringLiteral("DeviceVersion"), deviceVersion);
    addText(QStringLiteral("Date"), date.toUTC().toString(Qt::ISODate));
    QDomElement settings = doc.createElement(QStringLiteral("Settings"));
    top.appendChild(settings);
    for (const Value& value : std::as_const(values)) {
        QDomElement setting = doc.createElement(QStringLiteral("Setting"));
        setting.setAttribute(QStringLiteral("id"), value.first);
        setting.setAttribute(QStringLiteral("value"), value.second);
        settings.appendChild(setting);
    }
    return doc.toByteArray(1);
}

bool BackupDocument::read(const QByteArray& data, QString* error)
{
    values.clear();
    const QString refusal = screen(data);
    if (!refusal.isEmpty() || !setContent(data)) {
        *error = refusal.isEmpty() ? tr("not a readable XML document") : refusal;
        return false;
    }
    const QDomElement top = doc.documentElement();
    if (top.tagName() != kRootTag || top.attribute(QStringLiteral("format")) != kFormat) {
        *error = tr("not a Tavolor backup");
        return false;
    }
    model = top.firstChildElement(QStringLiteral("Model")).text();
    deviceVersion = top.firstChildElement(QStringLiteral("DeviceVersion")).text();
    date = QDateTime::fromString(top.firstChildElement(QStringLiteral("Date")).text(), Qt::ISODate);
    const QDomElement settings = top.firstChildElement(QStringLiteral("Settings"));
    if (settings.isNull()) {
        *error = tr("the backup holds no settings");
        return false;
    }
    for (QDomElement setting = settings.firstChildElement(); !setting.isNull();
         setting = setting.nextSiblingElement()) {
        const QString id = setting.attribute(QStringLiteral("id"));
        if (setting.tagName() != QLatin1String("Setting") || id.isEmpty() ||
            !setting.hasAttribute(QStringLiteral("value"))) {
            *error = tr("malformed entry at line %1").arg(setting.lineNumber());
            return false;
        }
        values.append({id, setting.attribute(QStringLiteral("value"))});
    }
    return true;
}

bool BackupDocument::sameModel(const QString& a, const QString& b)
{
    const auto folded = [](QString name) {
        return name.replace(QLatin1Char('_'), QLatin1Char(' ')).simplified().toLower();
    };
    const QString first = folded(a);
    const QString second = folded(b);
    if (first.isEmpty() || second.isEmpty())
        return first == second;
    return first.contains(second) || second.contains(first);
}
