#pragma once

#include <QString>

// The two-letter language of the process locale for character types, as set from the
// environment. The POSIX default yields its one-letter name "C".
QString GetSystemLocale();

// "<base>_<ll>.<extension>" with the system language.
QString localizedFileName(const QString& base, const QString& extension);
