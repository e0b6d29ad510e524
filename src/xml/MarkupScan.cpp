#include "xml/MarkupScan.h"

#include "xml/DomParser.h"

#include <cstring>

namespace {

bool isNameStart(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool isNameChar(char c)
{
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '.' || c == '-';
}

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isXmlChar(uint c)
{
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) ||
           (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

// The character a numeric reference ("#65" or "#x41") stands for; 0 when it is none.
uint referencedCharacter(QByteArrayView digits)
{
    const bool hex = digits.startsWith("#x");
    digits = digits.sliced(hex ? 2 : 1);
    if (digits.isEmpty() || digits.size() > 8)
        return 0;
    uint value = 0;
    for (const char c : digits) {
        const int digit = c >= '0' && c <= '9'          ? c - '0'
                          : hex && c >= 'a' && c <= 'f' ? c - 'a' + 10
                          : hex && c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                        : -1;
        if (digit < 0)
            return 0;
        value = value * (hex ? 16 : 10) + uint(digit);
    }
    return isXmlChar(value) ? value : 0;
}

} // namespace

bool MarkupScan::run(const QByteArray& text)
{
    p = text.constData();
    n = text.size();
    i = 0;
    if (n > DomParser::kMaxDocumentBytes || !plainCharacters(text) || !declaration())
        return false;
    bool seen = false;
    for (;;) {
        skipSpace();
        if (i >= n)
            return seen;
        if (startsWith("<!--")) {
            if (!comment())
                return false;
        } else if (seen || p[i] != '<' || !documentElement()) {
            return false;
        } else {
            seen = true;
        }
    }
}

// Every character allowed in XML, in well-formed UTF-8.
bool MarkupScan::plainCharacters(const QByteArray& text)
{
    static constexpr uint kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    constexpr quint64 kHigh = 0x8080808080808080ULL;
    constexpr quint64 kSpaces = 0x2020202020202020ULL;
    const auto* b = reinterpret_cast<const uchar*>(text.constData());
    const qsizetype size = text.size();
    for (qsizetype k = 0; k < size;) {
        // Eight printable ASCII bytes at a time: none with its top bit set, none below ' '.
        if (k + 8 <= size) {
            quint64 word;
            std::memcpy(&word, b + k, 8);
            if (((word | (word - kSpaces)) & kHigh) == 0) {
                k += 8;
                continue;
            }
        }
        const uchar c = b[k];
        if (c >= 0x20 && c < 0x80) {
            ++k;
            continue;
        }
        if (c < 0x20) {
            if (c != '\t' && c != '\n' && c != '\r')
                return false;
            ++k;
            continue;
        }
        const int length = (c & 0xE0) == 0xC0   ? 2
                           : (c & 0xF0) == 0xE0 ? 3
                           : (c & 0xF8) == 0xF0 ? 4
                                                : 0;
        if (length == 0 || k + length > size)
            return false;
        uint code = c & (0x7F >> length);
        for (int m = 1; m < length; ++m) {
            if ((b[k + m] & 0xC0) != 0x80)
                return false;
            code = (code << 6) | (b[k + m] & 0x3F);
        }
        if (code < kLeast[length] || !isXmlChar(code))
            return false;
        k += length;
    }
    return true;
}

bool MarkupScan::declaration()
{
    if (!startsWith("<?xml"))
        return true;
    i += 5;
    // version, then optionally encoding (UTF-8 alone) and standalone, in this order.
    static const char* const kNames[] = {"version", "encoding", "standalone"};
    int next = 0;
    for (;;) {
        const bool spaced = skipSpace() > 0;
        if (startsWith("?>")) {
            i += 2;
            return next > 0;
        }
        Attributes one;
        if (!spaced || !attribute(&one))
            return false;
        const int first = next;
        while (next < 3 && one[0].name != QByteArrayView(kNames[next]))
            ++next;
        const QByteArrayView value = one[0].value;
        const bool allowed = next == 0   ? value == QByteArrayView("1.0")
                             : next == 1 ? value.compare("utf-8", Qt::CaseInsensitive) == 0
                                         : next == 2 && (value == QByteArrayView("yes") ||
                                                         value == QByteArrayView("no"));
        if (!allowed || (first == 0 && next != 0))
            return false;
        ++next;
    }
}

bool MarkupScan::documentElement()
{
    QVarLengthArray<QByteArrayView, 64> open;
    do {
        if (i >= n)
            return false;
        bool ok = true;
        const char next = i + 1 < n ? p[i + 1] : '\0';
        if (p[i] != '<')
            ok = characterData();
        else if (next == '/')
            ok = endTag(&open);
        else if (next != '!')
            ok = startTag(&open);
        else if (startsWith("<!--"))
            ok = comment();
        else
            ok = startsWith("<![CDATA[") && !open.isEmpty() && cdata();
        if (!ok)
            return false;
    } while (!open.isEmpty());
    return true;
}

bool MarkupScan::startTag(QVarLengthArray<QByteArrayView, 64>* open)
{
    const qsizetype begin = i++;
    QByteArrayView tag;
    if (!name(&tag))
        return false;
    Attributes attributes;
    for (;;) {
        const bool spaced = skipSpace() > 0;
        if (isTagEnd())
            break;
        if (!spaced || !attribute(&attributes))
            return false;
    }
    if (open->size() >= DomParser::kMaxNestingDepth)
        return false;
    startElement(tag, attributes, begin, p[i] == '/');
    if (p[i] == '/') {
        i += 2;
        endElement(i);
    } else {
        ++i;
        open->append(tag);
    }
    return true;
}

bool MarkupScan::endTag(QVarLengthArray<QByteArrayView, 64>* open)
{
    i += 2;
    QByteArrayView tag;
    if (!name(&tag))
        return false;
    skipSpace();
    if (open->isEmpty() || open->last() != tag || i >= n || p[i] != '>')
        return false;
    open->removeLast();
    ++i;
    endElement(i);
    return true;
}

bool MarkupScan::attribute(Attributes* attributes)
{
    QByteArrayView key;
    if (!name(&key))
        return false;
    skipSpace();
    if (i >= n || p[i] != '=')
        return false;
    ++i;
    skipSpace();
    if (i >= n || (p[i] != '"' && p[i] != '\''))
        return false;
    const char* close = static_cast<const char*>(std::memchr(p + i + 1, p[i], size_t(n - i - 1)));
    if (!close)
        return false;
    const QByteArrayView value(p + i + 1, close - (p + i + 1));
    if (value.contains('<') || !references(i + 1, close - p))
        return false;
    for (const Attribute& earlier : *attributes) {
        if (earlier.name == key)
            return false;
    }
    attributes->append({key, value});
    i = close - p + 1;
    return true;
}

bool MarkupScan::characterData()
{
    const char* next = static_cast<const char*>(std::memchr(p + i, '<', size_t(n - i)));
    const qsizetype end = next ? next - p : n;
    for (const char* bracket = static_cast<const char*>(std::memchr(p + i, ']', size_t(end - i)));
         bracket; bracket = static_cast<const char*>(
                      std::memchr(bracket + 1, ']', size_t(p + end - bracket - 1)))) {
        if (p + end - bracket >= 3 && bracket[1] == ']' && bracket[2] == '>')
            return false;
    }
    if (!references(i, end))
        return false;
    i = end;
    return true;
}

bool MarkupScan::comment()
{
    const qsizetype dashes = QByteArrayView(p, n).indexOf("--", i + 4);
    if (dashes < 0 || dashes + 2 >= n || p[dashes + 2] != '>')
        return false;
    i = dashes + 3;
    return true;
}

bool MarkupScan::cdata()
{
    const qsizetype end = QByteArrayView(p, n).indexOf("]]>", i + 9);
    if (end < 0)
        return false;
    i = end + 3;
    return true;
}

bool MarkupScan::name(QByteArrayView* out)
{
    const qsizetype begin = i;
    if (i >= n || !isNameStart(p[i]))
        return false;
    while (i < n && isNameChar(p[i]))
        ++i;
    *out = QByteArrayView(p + begin, i - begin);
    return true;
}

bool MarkupScan::references(qsizetype from, qsizetype to) const
{
    static const QByteArrayView kNamed[] = {"amp", "lt", "gt", "quot", "apos"};
    for (const char* a = static_cast<const char*>(std::memchr(p + from, '&', size_t(to - from))); a;
         a = static_cast<const char*>(std::memchr(a + 1, '&', size_t(p + to - a - 1)))) {
        const char* semicolon = static_cast<const char*>(std::memchr(a, ';', size_t(p + to - a)));
        if (!semicolon)
            return false;
        const QByteArrayView reference(a + 1, semicolon - a - 1);
        bool known = reference.startsWith('#') && referencedCharacter(reference) != 0;
        for (const QByteArrayView named : kNamed)
            known = known || reference == named;
        if (!known)
            return false;
    }
    return true;
}

bool MarkupScan::isTagEnd() const
{
    return i < n && (p[i] == '>' || (p[i] == '/' && i + 1 < n && p[i + 1] == '>'));
}

int MarkupScan::skipSpace()
{
    const qsizetype begin = i;
    while (i < n && isSpace(p[i]))
        ++i;
    return int(i - begin);
}

bool MarkupScan::startsWith(const char* text) const
{
    const size_t length = std::strlen(text);
    return n - i >= qsizetype(length) && std::memcmp(p + i, text, length) == 0;
}
