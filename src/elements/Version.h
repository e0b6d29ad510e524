#pragma once

#include <QString>

// A program version: major, minor and build numbers.
class Version
{
public:
    Version() = default;
    Version(unsigned major, unsigned minor, unsigned build);
    virtual ~Version() = default;
    Version(const Version&) = default;
    Version& operator=(const Version&) = default;

    // "1.2.3"; missing or malformed parts count as 0.
    static Version fromString(const QString& text);

    unsigned major() const { return _major; }
    unsigned minor() const { return _minor; }
    unsigned build() const { return _build; }

    // "%u.%.2u.%.2u", e.g. "1.02.07".
    QString toString() const;

private:
    unsigned _major = 0;
    unsigned _minor = 0;
    unsigned _build = 0;
};
