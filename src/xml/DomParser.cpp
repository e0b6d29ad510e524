#include "xml/DomParser.h"

#include "app/Log.h"

#include <QFile>
#include <QIODevice>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextStream>
#include <QXmlStreamReader>

DomParser::DomParser()
    : doc(QStringLiteral("doc"))
{
}

DomParser::~DomParser() = default;

bool DomParser::open(QIODevice* device)
{
    if (!device)
        return false;
    if (!device->open(QIODevice::ReadOnly)) {
        const auto* file = qobject_cast<QFile*>(device);
        const QByteArray name = file ? QFile::encodeName(file->fileName()) : QByteArray();
        TAV_LOG(9, "Cannot open file: '%s'", name.constData());
        return false;
    }
    const QByteArray data = device->read(kMaxDocumentBytes + 1);
    device->close();
    valid = parse(data);
    return valid;
}

bool DomParser::setContent(const QString& text)
{
    valid = parse(text.toUtf8());
    return valid;
}

bool DomParser::setContent(const QByteArray& data)
{
    valid = parse(data);
    return valid;
}

bool DomParser::isValid() const
{
    return valid;
}

QString DomParser::screen(const QByteArray& data)
{
    if (data.size() > kMaxDocumentBytes)
        return QStringLiteral("document larger than %1 bytes").arg(kMaxDocumentBytes);
    const int depth = quickNestingDepth(data);
    if (depth >= 0)
        return depth > kMaxNestingDepth ? nestingRefusal() : QString();

    // Declarations, or an encoding the byte scan cannot read: the full reader decides.
    QXmlStreamReader reader(data);
    int level = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (++level > kMaxNestingDepth)
                return nestingRefusal();
            break;
        case QXmlStreamReader::EndElement:
            --level;
            break;
        case QXmlStreamReader::DTD:
            if (!reader.entityDeclarations().isEmpty())
                return QStringLiteral("entity declarations are not accepted");
            break;
        default:
            break;
        }
    }
    // Syntax errors are left for the DOM parser to report with their position.
    return QString();
}

QString DomParser::nestingRefusal()
{
    return QStringLiteral("elements nested deeper than %1 levels").arg(kMaxNestingDepth);
}

// A byte scan of the markup, several times faster than a reader pass, exact for well-formed
// documents in an ASCII-compatible encoding: comments, CDATA sections and processing
// instructions are skipped, quoted attribute values may hold '>'. Gives -1 when the document
// holds a declaration ("<!DOCTYPE") or starts like UTF-16 or UTF-32.
int DomParser::quickNestingDepth(const QByteArray& data)
{
    const qsizetype n = data.size();
    const char* const p = data.constData();
    if (n >= 2 && (p[0] == '\0' || p[1] == '\0' || uchar(p[0]) >= 0xFE))
        return -1;
    const auto skipPast = [&data](qsizetype from, const char* end) {
        const qsizetype at = data.indexOf(end, from);
        return at < 0 ? data.size() : at + qsizetype(qstrlen(end));
    };
    int depth = 0;
    int deepest = 0;
    qsizetype i = data.indexOf('<');
    while (i >= 0 && i < n) {
        const char next = i + 1 < n ? p[i + 1] : '\0';
        if (qstrncmp(p + i, "<!--", 4) == 0) {
            i = skipPast(i + 4, "-->");
        } else if (qstrncmp(p + i, "<![CDATA[", 9) == 0) {
            i = skipPast(i + 9, "]]>");
        } else if (next == '!') {
            return -1;
        } else if (next == '?') {
            i = skipPast(i + 2, "?>");
        } else if (next == '/') {
            --depth;
            i = skipPast(i + 2, ">");
        } else {
            qsizetype j = i + 1;
            for (char quote = 0; j < n && (quote || p[j] != '>'); ++j) {
                if (quote ? p[j] == quote : (p[j] == '"' || p[j] == '\''))
                    quote = quote ? 0 : p[j];
            }
            if (p[j - 1] != '/')
                deepest = qMax(deepest, ++depth);
            i = j + 1;
        }
        i = i < n ? data.indexOf('<', i) : -1;
    }
    return deepest;
}

bool DomParser::parse(const QByteArray& data)
{
    const QString refused = screen(data);
    if (!refused.isEmpty()) {
        TAV_LOG(9, "XML document refused: %s", qPrintable(refused));
        doc.clear();
        return false;
    }
    QString error;
    int line = 0;
    int column = 0;
    if (doc.setContent(data, &error, &line, &column))
        return true;
    // An 8-bit device text does not always hold what it declares: bytes that are not valid in
    // its encoding are read one character each, as Latin-1.
    const QByteArray encoding = declaredEncoding(data);
    QStringDecoder decoder(encoding.constData());
    if (decoder.isValid()) {
        const QString decoded = decoder.decode(data);
        if (decoder.hasError()) {
            TAV_LOG(9, "the document holds bytes that are not valid %s; read as Latin-1",
                    encoding.constData());
            if (doc.setContent(QString::fromLatin1(data), &error, &line, &column))
                return true;
        }
    }
    TAV_LOG(10, "XML parse error at %d:%d: %s", line, column, qPrintable(error));
    return false;
}

QByteArray DomParser::declaredEncoding(const QByteArray& data)
{
    static const QRegularExpression declaration(
        QStringLiteral("^\\s*<\\?xml[^>]*\\sencoding\\s*=\\s*[\"']([A-Za-z0-9._-]+)[\"']"));
    const QRegularExpressionMatch match =
        declaration.match(QString::fromLatin1(data.left(kDeclarationBytes)));
    return match.hasMatch() ? match.captured(1).toLatin1() : QByteArrayLiteral("UTF-8");
}

void DomParser::save(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return;
    QTextStream stream(&file);
    doc.save(stream, 4);
}

QStringList DomParser::splitPath(const QString& path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

QDomNode DomParser::find(const QString& path) const
{
    return find(splitPath(path));
}

QDomNode DomParser::find(const QStringList& parts) const
{
    QDomNode node = doc;
    for (const QString& part : parts) {
        QDomNode child = node.firstChild();
        while (!child.isNull() && !(child.isElement() && child.toElement().tagName() == part))
            child = child.nextSibling();
        if (child.isNull())
            return QDomNode();
        node = child;
    }
    return node;
}

QDomNode DomParser::create(const QString& path)
{
    return create(splitPath(path));
}

QDomNode DomParser::create(const QStringList& parts)
{
    QDomNode found = find(parts);
    if (!found.isNull())
        return found;
    TAV_LOG(10, "need to create path!");
    // The chain is rebuilt from the document node even when its leading part exists.
    QDomNode node = doc;
    for (const QString& part : parts)
        node = node.appendChild(doc.createElement(part));
    return node;
}

QString DomParser::text(const QDomNode& node)
{
    return node.isElement() ? node.toElement().text() : node.nodeValue();
}

QString DomParser::attribute(const QDomNode& node, const QString& name)
{
    return node.toElement().attribute(name);
}

QString DomParser::childText(const QDomNode& node, const QString& tagName)
{
    const QDomElement child = node.firstChildElement(tagName);
    return child.isNull() ? QString() : child.text();
}

void DomParser::dumpNode(const QDomNode& node) const
{
    TAV_LOG(11, "<%s>", qPrintable(node.nodeName()));
    const QDomNamedNodeMap attributes = node.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QDomNode a = attributes.item(i);
        TAV_LOG(11, "    attribute: %s    value: %s    type: %d", qPrintable(a.nodeName()),
                qPrintable(a.nodeValue()), int(a.nodeType()));
    }
    for (QDomElement child = node.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.childNodes().count() <= 1) {
            TAV_LOG(11, "  name: %s    value: %s    type: %d", qPrintable(child.tagName()),
                    qPrintable(child.text()), int(child.nodeType()));
            continue;
        }
        const QDomNamedNodeMap childAttributes = child.attributes();
        for (int i = 0; i < childAttributes.count(); ++i) {
            const QDomNode a = childAttributes.item(i);
            TAV_LOG(11, "%s\n    attribute: %s    value: %s    type: %d",
                    qPrintable(child.tagName()), qPrintable(a.nodeName()),
                    qPrintable(a.nodeValue()), int(a.nodeType()));
        }
    }
}

void DomParser::dumpNodes(const QString& title, const QList<QDomNode>& nodes) const
{
    TAV_LOG(11, "-------------------- %s: -------------------- ", qPrintable(title));
    for (const QDomNode& node : nodes) {
        QString line = QStringLiteral("name: %1    value: %2").arg(node.nodeName(), text(node));
        const QDomNamedNodeMap attributes = node.attributes();
        for (int i = 0; i < attributes.count(); ++i) {
            const QDomNode a = attributes.item(i);
            line += QStringLiteral("\n    AttrName: ") + a.nodeName() +
                    QStringLiteral("    Value: ") + a.nodeValue();
        }
        TAV_LOG(11, "%s", qPrintable(line));
    }
}

void DomParser::dumpDomElement(const QDomElement& element, const QString& indent) const
{
    // Iterative so that a deep document cannot exhaust the stack.
    QList<QPair<QDomElement, QString>> pending{{element, indent}};
    while (!pending.isEmpty()) {
        const auto [current, prefix] = pending.takeLast();
        if (current.isNull())
            continue;
        TAV_LOG(11, "%s%s", qPrintable(prefix), qPrintable(current.tagName()));
        QList<QPair<QDomElement, QString>> children;
        for (QDomElement c = current.firstChildElement(); !c.isNull(); c = c.nextSiblingElement())
            children.append({c, prefix + QStringLiteral("  ")});
        for (auto it = children.crbegin(); it != children.crend(); ++it)
            pending.append(*it);
    }
}
