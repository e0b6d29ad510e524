#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QVarLengthArray>

// One pass over an XML text, several times faster than a reader, that vouches for the text
// only when it is certainly well-formed: it accepts the plain XML devices write (UTF-8, no
// document type, no processing instructions but the declaration, names of ASCII letters,
// digits, '_', '.' and '-', only the predefined and numeric references) and declines
// everything else, which the full reader then judges. On the way it reports the elements.
class MarkupScan
{
public:
    struct Attribute
    {
        QByteArrayView name;
        QByteArrayView value; // as written: references not replaced
    };
    using Attributes = QVarLengthArray<Attribute, 8>;

    virtual ~MarkupScan() = default;

    // True when the text is well-formed XML of that plain kind.
    bool run(const QByteArray& text);

protected:
    // begin: the offset of the '<' that opens the element; empty: written as "<name/>".
    virtual void startElement(QByteArrayView name, const Attributes& attributes, qsizetype begin,
                              bool empty) = 0;
    // end: the offset just past the element's last '>'; empty elements end too.
    virtual void endElement(qsizetype end) = 0;

private:
    static bool plainCharacters(const QByteArray& text);
    bool declaration();
    bool documentElement();
    bool startTag(QVarLengthArray<QByteArrayView, 64>* open);
    bool endTag(QVarLengthArray<QByteArrayView, 64>* open);
    bool attribute(Attributes* attributes);
    bool characterData();
    bool comment();
    bool cdata();
    bool name(QByteArrayView* out);
    bool references(qsizetype from, qsizetype to) const;
    int skipSpace();
    bool isTagEnd() const; // "/>" or ">"
    bool startsWith(const char* text) const;

    const char* p = nullptr;
    qsizetype n = 0;
    qsizetype i = 0;
};
