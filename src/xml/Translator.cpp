#include "xml/Translator.h"

#include "app/Log.h"
#include "elements/ILocalizable.h"

#include <QFile>

namespace {

const QString kDescriptionSuffix = QStringLiteral(" description");

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
    indexMessages();
    return _opened;
}

bool Translator::setContent(const QString& text)
{
    const bool ok = DomParser::setContent(text);
    indexMessages();
    return ok;
}

bool Translator::setContent(const QByteArray& data)
{
    const bool ok = DomParser::setContent(data);
    indexMessages();
    return ok;
}

void Translator::indexMessages()
{
    _messages.clear();
    _positions.clear();
    for (QDomNode node = messages().firstChild(); !node.isNull(); node = node.nextSibling()) {
        const QDomElement message = node.toElement();
        if (message.isNull() || message.tagName() != QLatin1String("message"))
            continue;
        const QDomElement key = message.firstChildElement(QStringLiteral("Id"));
        if (key.isNull())
            continue;
        const QDomElement value = message.firstChildElement(QStringLiteral("Value"));
        _positions[key.text()].append(int(_messages.size()));
        _messages.append({key.text(), value.text(), !value.isNull()});
    }
}

void Translator::save(const QString& fileName)
{
    TAV_LOG(10, "translation files are not written: '%s'", qPrintable(fileName));
}

QDomNode Translator::messages() const
{
    return find(QStringLiteral("root/Translation"));
}

// Walking the messages in order until both keys have been seen, a later match replacing an
// earlier one until then, ends where the later of the two first matches stands.
void Translator::lookup(const QString& id, const QString& defaultTitle,
                        const QString& defaultDescription, QString* title,
                        QString* description) const
{
    const QList<int> titles = _positions.value(id);
    const QList<int> descriptions = _positions.value(id + kDescriptionSuffix);
    const int stop = titles.isEmpty() || descriptions.isEmpty()
                         ? int(_messages.size())
                         : qMax(titles.first(), descriptions.first());
    *title = valueAt(titles, stop, defaultTitle);
    *description = valueAt(descriptions, stop, defaultDescription);
}

QString Translator::valueAt(const QList<int>& positions, int stop, const QString& fallback) const
{
    QString text = fallback;
    for (const int at : positions) {
        if (at > stop)
            break;
        const Message& message = _messages.at(at);
        if (!message.hasValue)
            qFatal("Wrong XML format"); // a matching message without "Value" is a broken file
        text = message.value;
    }
    return text;
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
