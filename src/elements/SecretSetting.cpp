#include "elements/SecretSetting.h"

#include "elements/ConcreteElement.h"

#include <QRegularExpression>

namespace {

// The words that mark a secret, with the translations the shipped languages use. Matched
// case-insensitively anywhere in an id or title, except "pin", which must stand as a word
// (or as PIN inside an id) so that "Spindle" or "Pinning" stay plain.
const char* const kSecretWords[] = {"password", "passphrase", "passcode", "secret",
                                    "passwort", "kennwort",   "geheim"};

bool namesSecret(const QString& text)
{
    for (const char* word : kSecretWords) {
        if (text.contains(QLatin1String(word), Qt::CaseInsensitive))
            return true;
    }
    static const QRegularExpression pin(QStringLiteral("\\b[Pp][Ii][Nn]\\b|PIN"));
    return pin.match(text).hasMatch();
}

} // namespace

bool SecretSetting::isSecret(const Element* element)
{
    return element && (namesSecret(element->id()) || namesSecret(element->title()));
}

QString SecretSetting::masked(const Element* element, const QString& value)
{
    return value.isEmpty() || !isSecret(element) ? value : QString::fromUtf8(mask());
}

QString SecretSetting::shownValue(const ConcreteElement* element)
{
    return masked(element, element->displayValue());
}
