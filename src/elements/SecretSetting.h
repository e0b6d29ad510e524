#pragma once

#include <QString>

class ConcreteElement;
class Element;

// Settings that hold a password, passphrase, PIN or secret, known by their id or title: their
// values are never shown in the clear, on screen or in the log.
class SecretSetting
{
public:
    static bool isSecret(const Element* element);
    // What stands for a secret value wherever a value is shown.
    static const char* mask() { return "•••"; }
    // value as it may be shown or logged for element: the mask for a secret that is not
    // empty (an empty secret gives nothing away), else the value itself.
    static QString masked(const Element* element, const QString& value);
    // The value the dialog's list shows for element.
    static QString shownValue(const ConcreteElement* element);
};
