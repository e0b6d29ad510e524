#include "elements/FloatSpinBox.h"

#include "elements/DeviceNumber.h"
#include "elements/DoubleValidator.h"
#include "elements/TraceLog.h"

#include <QLineEdit>
#include <QLocale>

#include <climits>
#include <cmath>

FloatSpinBox::FloatSpinBox(double bottom, double top, double step, int digits, QWidget* parent)
    : SpinBox(new DoubleValidator(bottom, top, digits), parent)
{
    // Decimals travel with a point, whatever the desktop's number format.
    setLocale(QLocale::c());
    setDecimalLimits(bottom, top, step, digits);
}

int FloatSpinBox::scaled(double value, double scale)
{
    return DeviceNumber::saturated(std::floor(scale * value + 0.5));
}

int FloatSpinBox::fittingDigits(double bottom, double top, int digits)
{
    const auto fits = [](double limit, double scale) {
        return !std::isfinite(limit) || std::fabs(std::floor(scale * limit + 0.5)) <= INT_MAX;
    };
    int fitting = digits;
    while (fitting > 0 &&
           !(fits(bottom, std::pow(10.0, fitting)) && fits(top, std::pow(10.0, fitting))))
        --fitting;
    return fitting;
}

void FloatSpinBox::setDecimalLimits(double bottom, double top, double step, int digits)
{
    const double old = decimalValue();
    _digits = fittingDigits(bottom, top, digits);
    if (_digits != digits)
        TAV_LOG(9, "Warning: %d decimals of %g..%g exceed the spin box: %d shown", digits, bottom,
                top, _digits);
    _scale = std::pow(10.0, _digits);
    setRange(std::isfinite(bottom) ? scaled(bottom, _scale) : INT_MIN,
             std::isfinite(top) ? scaled(top, _scale) : INT_MAX);
    // A step finer than the last decimal shown still moves by one unit of it.
    setSingleStep(qMax(1, scaled(step, _scale)));
    decimalValidator()->setRange(minimum() / _scale, maximum() / _scale, _digits);
    setDecimalValue(old);
}

void FloatSpinBox::setDecimalValue(double value)
{
    // The product of a decimal and its scale can land a hair below the whole number it
    // stands for (1.13 * 100 = 112.99999999999999); that must not lose a unit.
    setValue(DeviceNumber::saturated(std::floor(_scale * value + 1e-7)));
}

bool FloatSpinBox::holds(double value, double scale)
{
    const double units = std::floor(scale * value + 1e-7);
    return std::isfinite(units) && units >= INT_MIN && units <= INT_MAX;
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
    return DeviceNumber::saturated(text.trimmed().toDouble() * _scale + 0.5);
}

QString FloatSpinBox::deviceText(int value) const
{
    return mapValueToText(value);
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

QValidator::State FloatSpinBox::validate(QString& text, int& pos) const
{
    // The desktop's decimal mark, when it is not the point, is read as the point.
    const QString mark = QLocale().decimalPoint();
    if (mark != QLatin1String("."))
        text.replace(mark, QLatin1String("."));
    return SpinBox::validate(text, pos);
}
