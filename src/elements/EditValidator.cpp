#include "elements/EditValidator.h"

#include "elements/ConcreteElement.h"
#include "elements/SecretSetting.h"
#include "elements/TraceLog.h"

#include <QDomElement>

namespace {

const QString kAllowedTemplate = QStringLiteral("[%1]*");
const QString kExcludedTemplate = QStringLiteral("[^%1]*");

// The first declaration of each kind; later ones are reported and ignored.
struct CharacterDeclarations
{
    QDomElement allowed;
    QDomElement unallowed;
};

CharacterDeclarations readDeclarations(const QDomElement& node)
{
    CharacterDeclarations found;
    for (QDomElement child = node.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        QDomElement* slot = nullptr;
        if (child.tagName() == QLatin1String("AllowedCharacters"))
            slot = &found.allowed;
        else if (child.tagName() == QLatin1String("UnAllowedCharacters"))
            slot = &found.unallowed;
        else
            continue;
        if (slot->isNull())
            *slot = child;
        else
            TAV_LOG(9, "Warning: ignoring excessive '%s' element", qPrintable(child.tagName()));
    }
    return found;
}

} // namespace

QString EditValidator::printableAscii()
{
    QString charset;
    for (char c = 0x20; c <= 0x7E; ++c)
        charset.append(QLatin1Char(c));
    return charset;
}

QString EditValidator::escapeSpecialChars(const QString& charset)
{
    QString adjusted = charset;
    for (const QChar special : QStringLiteral("\\[]^-"))
        adjusted.replace(special, QString(QLatin1Char('\\')) + special);
    // A class that begins with ":", "." or "=" is read as a POSIX class ("[:abc:]"), which the
    // expression engine refuses; escaped, the character is taken as itself.
    if (!adjusted.isEmpty() && QStringLiteral(":.=").contains(adjusted.front()))
        adjusted.prepend(QLatin1Char('\\'));
    TAV_TRACE(11, "adjusted charset=<%s>", qPrintable(adjusted));
    return adjusted;
}

void EditValidator::_setupValidator(ConcreteElement* element, const QDomElement& node,
                                    const QString& defaultPattern)
{
    QString charset;
    QString templ;
    QString pattern;
    const CharacterDeclarations declared = readDeclarations(node);
    const bool hasUnallowed = !declared.unallowed.isNull();

    if (declared.allowed.isNull()) {
        if (hasUnallowed) {
            charset = declared.unallowed.text();
            templ = kExcludedTemplate;
        } else {
            pattern = defaultPattern;
        }
    } else {
        const QString symbolSet = declared.allowed.attribute(QStringLiteral("SymbolSet"));
        if (symbolSet == QLatin1String("ASCII")) {
            charset = printableAscii();
            if (hasUnallowed) {
                const QString unallowed = declared.unallowed.text();
                TAV_LOG(10, "unAllowed='%s'", qPrintable(unallowed));
                for (const QChar c : unallowed)
                    charset.remove(c);
            }
            templ = kAllowedTemplate;
        } else if (symbolSet == QLatin1String("MultiLanguage")) {
            if (hasUnallowed) {
                charset = declared.unallowed.text();
                templ = kExcludedTemplate;
            } else {
                pattern = QStringLiteral(".*");
            }
        } else if (symbolSet.isEmpty() || symbolSet == QLatin1String("AllowedCharOnly")) {
            charset = declared.allowed.text();
            templ = kAllowedTemplate;
            if (hasUnallowed)
                TAV_LOG(9, "Warning: ignoring unexpected '%s' element", "UnAllowedCharacters");
        } else {
            TAV_LOG(9, "Warning: unexpected symbolSet='%s'", qPrintable(symbolSet));
            pattern = defaultPattern;
        }
    }

    TAV_TRACE(10, "setupElementValidator: id=<%s> current=<%s> charset=<%s>",
              qPrintable(element->id()),
              qPrintable(SecretSetting::masked(element, element->current())), qPrintable(charset));
    if (pattern.isEmpty() && !templ.isEmpty() && !charset.isEmpty()) {
        pattern = templ.arg(escapeSpecialChars(charset));
        TAV_TRACE(10, "pattern=<%s>", qPrintable(pattern));
    }
    if (pattern.isEmpty())
        return;

    element->setValidationPattern(pattern);
    const QString asRead = element->current();
    const bool fits = ConcreteElement::matchesPattern(pattern, asRead);
    element->setCurrent(fits ? asRead : QString(""));
    element->setInitial(asRead);
    if (!fits)
        element->markEmptiedAtLoad();
}
