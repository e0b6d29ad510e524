#pragma once

class Element;

// Settings that hold a password, passphrase, PIN or secret, known by their id or title: their
// values are never shown in the clear.
class SecretSetting
{
public:
    static bool isSecret(const Element* element);
    // What stands for a secret value wherever a value is shown.
    static const char* mask() { return "•••"; }
};
