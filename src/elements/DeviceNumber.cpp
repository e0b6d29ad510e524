#include "elements/DeviceNumber.h"

#include <climits>
#include <cmath>

std::optional<qint64> DeviceNumber::integer(const QString& text)
{
    bool ok = false;
    const qint64 value = text.trimmed().toLongLong(&ok, 10);
    return ok ? std::optional<qint64>(value) : std::nullopt;
}

std::optional<double> DeviceNumber::decimal(const QString& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

std::optional<qint64> DeviceNumber::limit(const QString& text, bool upper)
{
    if (const std::optional<qint64> whole = integer(text))
        return whole;
    const std::optional<double> value = decimal(text);
    if (!value)
        return std::nullopt;
    const double inside = upper ? std::floor(*value) : std::ceil(*value);
    // 2^63 is the first double beyond qint64.
    if (inside >= 9223372036854775808.0)
        return LLONG_MAX;
    if (inside < -9223372036854775808.0)
        return LLONG_MIN;
    return qint64(inside);
}

int DeviceNumber::saturated(qint64 value)
{
    return int(qBound(qint64(INT_MIN), value, qint64(INT_MAX)));
}

int DeviceNumber::saturated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= double(INT_MIN))
        return INT_MIN;
    if (value >= double(INT_MAX))
        return INT_MAX;
    return int(value);
}

bool DeviceNumber::fitsInt(qint64 value)
{
    return value >= INT_MIN && value <= INT_MAX;
}
