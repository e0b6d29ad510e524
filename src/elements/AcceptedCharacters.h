#pragma once

#include <QCoreApplication>
#include <QString>

// The characters a text setting's validation pattern admits, in words for its help. The
// reader makes one character class, repeated ("[...]*" or "[^...]*"); other patterns, and
// those that admit any text, are not described.
class AcceptedCharacters
{
    Q_DECLARE_TR_FUNCTIONS(AcceptedCharacters)

public:
    static QString describe(const QString& pattern);

private:
    // The printable ASCII characters the class names, then those beyond ASCII it lists.
    static QString members(const QString& characterClass);
    // Runs of letters or digits as "A–Z", the blank as a word, the rest one by one.
    static QString listed(const QString& characters);
};
