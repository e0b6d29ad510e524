#pragma once

#include <QByteArray>
#include <QString>

// A settings specification of a given number of settings, shaped like a device's: groups of
// forty settings mixing every common kind, a popup form in each group.
class SpecGenerator
{
public:
    static QByteArray generate(int settings);
    // A value setting "S<n>" of generate() allows besides its current one.
    static QString changedValue(int n);
    // A flat specification of about `bytes` bytes of small settings, for transfer timings.
    static QByteArray ofSize(int bytes);
};
