#include "xml/ChangeGenerator.h"

#include "elements/ConcreteElement.h"
#include "elements/TraceLog.h"
#include "xml/ElementType.h"

ChangeGenerator::ChangeGenerator()
    : _header(QString::asprintf("<?xml version=\"%s\" encoding=\"%s\"?>\n", "1.0", "UTF-8"))
{
}

void ChangeGenerator::reset()
{
    while (!doc.firstChild().isNull())
        doc.removeChild(doc.firstChild());
}

QDomNode ChangeGenerator::createPath(const QStringList& parts)
{
    QDomNode node = doc;
    for (const QString& part : parts) {
        QDomElement child = node.firstChildElement(part);
        if (child.isNull())
            child = node.appendChild(doc.createElement(part)).toElement();
        node = child;
    }
    return node;
}

QDomElement ChangeGenerator::createDescription(const Element* element)
{
    TAV_TRACE(11, "ChangeGenerator::createDescription: ie->typeName()=<%s>",
              qPrintable(element->typeName()));
    QDomElement description = doc.createElement(element->id());
    if (const auto* concrete = qobject_cast<const ConcreteElement*>(element))
        description.setAttribute(QStringLiteral("CURRENT"), concrete->current());
    else if (ElementTypes::isReportableButton(element->type()))
        description.setAttribute(QStringLiteral("CURRENT"), QStringLiteral("PRESSED"));
    return description;
}

QString ChangeGenerator::getChanges() const
{
    TAV_TRACE(10, "ChangeGenerator::getChanges() started");
    return _header + doc.toString();
}
