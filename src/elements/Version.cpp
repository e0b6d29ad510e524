#include "elements/Version.h"

#include <QStringList>

Version::Version(unsigned major, unsigned minor, unsigned build)
    : _major(major)
    , _minor(minor)
    , _build(build)
{
}

Version Version::fromString(const QString& text)
{
    const QStringList parts = text.trimmed().split(QLatin1Char('.'));
    const auto part = [&parts](int i) { return i < parts.size() ? parts.at(i).toUInt() : 0u; };
    return Version(part(0), part(1), part(2));
}

QString Version::toString() const
{
    return QString::asprintf("%u.%.2u.%.2u", _major, _minor, _build);
}
