#pragma once

#include <QDomDocument>
#include <QDomNode>
#include <QList>
#include <QString>

class QIODevice;

// Base of every XML reader and writer: one DOM document, whether its content parsed, and
// lookup and creation of nodes by "/"-separated tag paths such as "root/Devices".
//
// Content is screened before the DOM sees it: documents larger than kMaxDocumentBytes,
// nested deeper than kMaxNestingDepth or declaring entities are refused with a logged
// reason. Devices never need any of these, and each would let a hostile document exhaust
// the stack (the DOM frees and serialises nodes recursively) or memory.
class DomParser
{
public:
    static constexpr qsizetype kMaxDocumentBytes = 64 * 1024 * 1024;
    static constexpr int kMaxNestingDepth = 4096;

    DomParser();
    virtual ~DomParser();
    DomParser(const DomParser&) = delete;
    DomParser& operator=(const DomParser&) = delete;

    virtual bool open(QIODevice* device);
    virtual bool setContent(const QString& text);
    virtual bool isValid() const;
    virtual void save(const QString& fileName);

    // Bytes keep the encoding the document declares; a QString has been decoded already.
    bool setContent(const QByteArray& data);

    QDomDocument& document() { return doc; }
    const QDomDocument& document() const { return doc; }

    // The node at a path, or a null node. The empty path is the document node itself.
    QDomNode find(const QString& path) const;
    QDomNode find(const QStringList& parts) const;
    // The node at a path, building the whole chain anew from the document node when absent.
    QDomNode create(const QString& path);
    QDomNode create(const QStringList& parts);

    static QStringList splitPath(const QString& path);
    static QString text(const QDomNode& node);
    static QString attribute(const QDomNode& node, const QString& name);
    static QString childText(const QDomNode& node, const QString& tagName);

    void dumpNode(const QDomNode& node) const;
    void dumpNodes(const QString& title, const QList<QDomNode>& nodes) const;
    void dumpDomElement(const QDomElement& element, const QString& indent = QString()) const;

    // Why the last content was refused before parsing; empty when it was not.
    static QString screen(const QByteArray& data);

protected:
    bool parse(const QByteArray& data);

    QDomDocument doc;
    bool valid = false;

private:
    // The XML declaration stands within this many bytes of the start.
    static constexpr qsizetype kDeclarationBytes = 256;

    // The encoding the XML declaration names; UTF-8 when it names none.
    static QByteArray declaredEncoding(const QByteArray& data);
    static int quickNestingDepth(const QByteArray& data);
    static QString nestingRefusal();
};
