#include "elements/FloatSpinBox.h"

#include "elements/DoubleValidator.h"

#include <QLineEdit>
#include <QLocale>

#include <climits>
#include <cmath>

namespace {

int clampToInt(double value)
{
    if (value < double(INT_MIN))
        return INT_MIN;
    if (value > double(INT_MAX))
        return INT_MAX;
    return int(value);
}

} // namespace

FloatSpinBox::FloatSpinBox(double bottom, double top, double step, int digits, QWidget* parent)
    : SpinBox(new DoubleValidator(bottom, top, digits), parent)
{
    // Decimals travel with a point, whatever the desktop's number format.
    setLocale(QLocale::c());
    setDecimalLimits(bottom, top, step, digits);
}

int FloatSpinBox::scaled(double value, double scale)
{
    return clampToInt(std::floor(scale * value + 0.5));
}

void FloatSpinBox::setDecimalLimits(double bottom, double top, double step, int digits)
{
    const double old = decimalValue();
    _digits = digits;
    _scale = std::pow(10.0, digits);
    setRange(scaled(bottom, _scale), scaled(top, _scale));
    setSingleStep(scaled(step, _scale));
    DoubleValidator* validator = decimalValidator();
    validator->setRange(bottom, top, digits);
    setDecimalValue(old);
}

void FloatSpinBox::setDecimalValue(double value)
{
    // The product of a decimal and its scale can land a hair below the whole number it
    // stands for (1.13 * 100 = 112.99999999999999); that must not lose a unit.
    setValue(clampToInt(std::floor(_scale * value + 1e-7)));
}

DoubleValidator* FloatSpinBox::decimalValidator() const
{
    return static_cast<DoubleValidator*>(validator());
}

QString FloatSpinBox::mapValueToText(int v) const
{
    if (_scale != 1.0)
        return QString::asprintf("%.*f", _digits, v / _scale);
    return QStringLiteral("%1.%2").arg(v).arg(0);
}

int FloatSpinBox::mapTextToValue(bool* ok) const
{
    return mapTextToValue(ok, lineEdit()->text());
}

int FloatSpinBox::mapTextToValue(bool* ok, const QString& text) const
{
    if (ok)
        *ok = true;
    return clampToInt(text.trimmed().toDouble() * _scale + 0.5);
}

QString FloatSpinBox::textFromValue(int value) const
{
    return mapValueToText(value);
}

int FloatSpinBox::valueFromText(const QString& text) const
{
    bool ok = false;
    return mapTextToValue(&ok, text);
}
