#pragma once

#include <QString>

class ConcreteElement;
class QDomElement;

// The validation pattern of the typed-text kinds, from their default or from the character
// sets the specification declares under the setting ("AllowedCharacters" with its
// "SymbolSet", "UnAllowedCharacters").
class EditValidator
{
public:
    // Sets the element's pattern and empties a value read from the specification that does
    // not match it; the text as read stays the initial value.
    static void _setupValidator(ConcreteElement* element, const QDomElement& node,
                                const QString& defaultPattern);

    // Backslash, "[", "]", "^" and "-" escaped for use inside a character class, and a
    // leading ":", "." or "=", so that any set is taken literally.
    static QString escapeSpecialChars(const QString& charset);

    // The 95 printable ASCII characters, space to tilde.
    static QString printableAscii();
};
