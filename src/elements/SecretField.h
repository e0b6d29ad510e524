#pragma once

class QLineEdit;
class QWidget;

// The line editor of a secret setting: its text shows as dots until the user asks to see it,
// with a toggle beside the editor in its box.
class SecretField
{
public:
    static void protect(QLineEdit* edit, QWidget* box);
};
