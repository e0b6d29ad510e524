#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

// Numbers as the device writes them in its settings: a point as the decimal mark, no group
// separators. Everything here refuses what it cannot read instead of guessing a value, and
// never lets a number overflow the type it lands in.
class DeviceNumber
{
public:
    // A whole number ("-12", " 7 "); nothing for other text or one beyond 64 bits.
    static std::optional<qint64> integer(const QString& text);
    // A finite decimal ("1.5", "1e3", "-0"); nothing for other text, "nan" and "inf".
    static std::optional<double> decimal(const QString& text);
    // A limit as the number it writes: whole numbers as they are, decimals rounded toward
    // the inside of the range (up for a lower limit, down for an upper one); nothing when the
    // text is empty or not a number.
    static std::optional<qint64> limit(const QString& text, bool upper);

    // Kept within the int range; not-a-number gives 0.
    static int saturated(qint64 value);
    static int saturated(double value);
    static bool fitsInt(qint64 value);
};
