#include "elements/DoubleValidator.h"

#include <QLocale>
#include <QRegularExpression>

DoubleValidator::DoubleValidator(double bottom, double top, int decimals, QObject* parent)
    : QDoubleValidator(bottom, top, decimals, parent)
{
    setNotation(QDoubleValidator::StandardNotation);
    // A group separator is refused while typing rather than read into another number.
    QLocale c = QLocale::c();
    c.setNumberOptions(QLocale::RejectGroupSeparator);
    setLocale(c);
}

void DoubleValidator::fixup(QString& text) const
{
    const QString trimmed = text.trimmed();
    const double value = trimmed.toDouble();
    if (value < bottom()) {
        text = QString::number(bottom(), 'f', decimals());
        return;
    }
    if (value > top()) {
        text = QString::number(top(), 'f', decimals());
        return;
    }
    static const QRegularExpression shape(QStringLiteral("^(\\d*)([\\.])(\\d*)$"));
    const QRegularExpressionMatch match = shape.match(trimmed);
    if (!match.hasMatch())
        return;
    const QString integerPart = match.captured(1);
    QString fraction = match.captured(3);
    bool rebuild = integerPart.isEmpty();
    if (fraction.size() > decimals()) {
        fraction = decimals() > 0 ? fraction.left(decimals()) : QString();
        rebuild = true;
    }
    if (rebuild)
        text = QString::asprintf("%d.%d", integerPart.toInt(), fraction.toInt());
}
