#include "Translator.h"

#include "ILocalizable.h"
#include "Log.h"

#include <QFile>

namespace {

const QString kDescriptionSuffix = QStringLiteral(" description");

// The text of the "Value" child of a matching message; a missing one is fatal.
QString requiredValue(const QDomElement& message)
{
    const QDomElement value = message.firstChildElement(QStringLiteral("Value"));
    if (value.isNull())
        qFatal("Wrong XML format");
    return value.text();
}

} // namespace

Translator::Translator() = default;

Translator::Translator(const QString& fileName)
{
    QFile file(fileName);
    open(&file);
}

bool Translator::open(QIODevice* device)
{
    _opened = DomParser::open(device);
    _errorText = _opened ? QString() : QStringLiteral("cannot read the translation file");
    return _opened;
}

void Translator::save(const QString& fileName)
{
    TAV_LOG(10, "translation files are not written: '%s'", qPrintable(fileName));
}

QDomNode Translator::messages() const
{
    return find(QStringLiteral("root/Translation"));
}

void Translator::lookup(const QString& id, const QString& defaultTitle,
                        const QString& defaultDescription, QString* title,
                        QString* description) const
{
    *title = defaultTitle;
    *description = defaultDescription;
    const QString descriptionKey = id + kDescriptionSuffix;
    bool titleFound = false;
    bool descriptionFound = false;
    for (QDomNode node = messages().firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (titleFound && descriptionFound)
            break;
        if (!node.isElement())
            continue;
        const QDomElement message = node.toElement();
        if (message.tagName() != QLatin1String("message"))
            continue;
        const QDomElement key = message.firstChildElement(QStringLiteral("Id"));
        if (key.isNull())
            continue;
        const QString keyText = key.text();
        if (keyText == id) {
            *title = requiredValue(message);
            titleFound = true;
        } else if (keyText == descriptionKey) {
            *description = requiredValue(message);
            descriptionFound = true;
        }
    }
}

void Translator::translate(const QString& id, ILocalizable& object) const
{
    QString title;
    QString description;
    lookup(id, object.title(), object.description(), &title, &description);
    if (title != object.title()) {
        object.setString(title);
        object.setTitle(title);
    }
    object.setDescription(description);
}
