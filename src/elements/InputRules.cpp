#include "elements/InputRules.h"

#include "elements/BoundaryElement.h"
#include "elements/FloatElement.h"
#include "elements/ListElement.h"
#include "elements/NumericElement.h"
#include "elements/Parameter.h"
#include "xml/ElementType.h"

#include <QCoreApplication>
#include <QStringList>

#include <cmath>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("InputRules", text);
}

std::optional<qint64> wholeNumber(const QString& text)
{
    bool ok = false;
    const qint64 value = text.trimmed().toLongLong(&ok, 10);
    return ok ? std::optional<qint64>(value) : std::nullopt;
}

std::optional<double> decimalNumber(const QString& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

// A whole number of steps from the base, give or take what decimal arithmetic loses: 0.3 is
// three steps of 0.1 although 0.3 / 0.1 is not exactly 3.
bool onStep(double distance, double step)
{
    const double steps = distance / step;
    return std::fabs(steps - std::round(steps)) <= 1e-6 * qMax(1.0, std::fabs(steps));
}

bool isIntegerKind(int type)
{
    return type == etInteger || type == etSlider;
}

std::optional<QList<int>> addressParts(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != 4)
        return std::nullopt;
    QList<int> numbers;
    for (const QString& part : parts) {
        bool ok = false;
        const int number = part.toInt(&ok, 10);
        if (part.isEmpty() || part.size() > 3 || !ok || number < 0 || number > 255)
            return std::nullopt;
        numbers.append(number);
    }
    return numbers;
}

} // namespace

bool InputRules::isWritable(const Element* element)
{
    if (!element || !element->isConcrete())
        return false;
    const int type = element->type();
    return type != etText && type != etAbout;
}

InputRules::Range InputRules::integerRange(const NumericElement* element)
{
    Range range;
    range.lower = element->lowerLimit();
    range.upper = element->upperLimit();
    range.step = qMax<qint64>(wholeNumber(element->step()).value_or(1), 1);
    return range;
}

bool InputRules::isAddress(const QString& text)
{
    return addressParts(text).has_value();
}

bool InputRules::isMask(const QString& text)
{
    const auto parts = addressParts(text);
    if (!parts)
        return false;
    quint32 bits = 0;
    for (int part : *parts)
        bits = (bits << 8) | quint32(part);
    // Contiguous ones: inverting gives a run of ones at the bottom, so adding one clears it.
    const quint32 hostBits = ~bits;
    return (hostBits & (hostBits + 1)) == 0;
}

QString InputRules::rangeText(const Range& range)
{
    const QString lower = range.lower ? QString::number(*range.lower) : tr("no lower limit");
    const QString upper = range.upper ? QString::number(*range.upper) : tr("no upper limit");
    return tr("a whole number from %1 to %2 in steps of %3")
        .arg(lower, upper, QString::number(range.step));
}

QString InputRules::describe(const Element* element)
{
    const int type = element ? element->type() : etUnknown;
    if (const auto* list = qobject_cast<const ListElement*>(element)) {
        QStringList choices;
        for (const Parameter* parameter : list->parameters()) {
            if (parameter->isVisible())
                choices.append(QStringLiteral("%1 (%2)").arg(parameter->id(), parameter->title()));
        }
        return tr("one of: %1").arg(choices.join(QStringLiteral(", ")));
    }
    if (const auto* numeric = qobject_cast<const NumericElement*>(element)) {
        if (isIntegerKind(type))
            return rangeText(integerRange(numeric));
        const auto* decimal = qobject_cast<const FloatElement*>(element);
        return tr("a decimal number from %1 to %2 in steps of %3")
            .arg(numeric->min(), numeric->max(),
                 QString::number(decimal ? decimal->decimalStep() : 1.0));
    }
    if (type == etIPAddress)
        return tr("an IPv4 address of four numbers 0 to 255 separated by dots");
    if (type == etSubnetMask)
        return tr("a subnet mask of four numbers 0 to 255 separated by dots, its one bits in "
                  "front");
    if (const auto* concrete = qobject_cast<const ConcreteElement*>(element)) {
        const auto* bounded = qobject_cast<const BoundaryElement*>(element);
        const QString pattern = concrete->validationPattern();
        QString text = pattern.isEmpty() ? tr("any text") : tr("text matching %1").arg(pattern);
        if (bounded && bounded->hasMax())
            text += tr(", at most %1 characters").arg(bounded->maxLength());
        return text;
    }
    return tr("nothing: it holds no value");
}

InputRules::Verdict InputRules::check(const Element* element, const QString& text)
{
    if (!isWritable(element))
        return {false, text, tr("read-only")};
    if (qobject_cast<const ListElement*>(element))
        return checkList(element, text);
    if (isIntegerKind(element->type()))
        return checkInteger(qobject_cast<const NumericElement*>(element), text);
    if (element->type() == etFloat)
        return checkFloat(element, text);
    return checkText(element, text);
}

InputRules::Verdict InputRules::checkList(const Element* element, const QString& text)
{
    const auto* list = qobject_cast<const ListElement*>(element);
    if (const Parameter* parameter = list->findParameter(text))
        return {true, parameter->id(), QString()};
    for (const Parameter* parameter : list->parameters()) {
        if (parameter->isVisible() && parameter->title() == text)
            return {true, parameter->id(), QString()};
    }
    return {false, text, describe(element)};
}

InputRules::Verdict InputRules::checkInteger(const NumericElement* element, const QString& text)
{
    const Range range = integerRange(element);
    const std::optional<qint64> value = wholeNumber(text);
    const bool accepted = value && (!range.lower || *value >= *range.lower) &&
                          (!range.upper || *value <= *range.upper) &&
                          (*value - range.lower.value_or(0)) % range.step == 0;
    return {accepted, value ? QString::number(*value) : text,
            accepted ? QString() : rangeText(range)};
}

InputRules::Verdict InputRules::checkFloat(const Element* element, const QString& text)
{
    const auto* decimal = qobject_cast<const FloatElement*>(element);
    const std::optional<double> value = decimalNumber(text);
    const std::optional<double> lower = decimalNumber(decimal->min());
    const std::optional<double> upper =
        decimal->hasMax() ? decimalNumber(decimal->max()) : std::nullopt;
    const bool accepted = value && (!lower || *value >= *lower) && (!upper || *value <= *upper) &&
                          onStep(*value - lower.value_or(0.0), decimal->decimalStep());
    return {accepted, text.trimmed(), accepted ? QString() : describe(element)};
}

InputRules::Verdict InputRules::checkText(const Element* element, const QString& text)
{
    const auto* concrete = qobject_cast<const ConcreteElement*>(element);
    const auto* bounded = qobject_cast<const BoundaryElement*>(element);
    bool accepted = ConcreteElement::matchesPattern(concrete->validationPattern(), text);
    if (element->type() == etIPAddress)
        accepted = isAddress(text);
    else if (element->type() == etSubnetMask)
        accepted = isMask(text);
    else if (bounded && bounded->hasMax())
        accepted = accepted && text.size() <= bounded->maxLength();
    return {accepted, text, accepted ? QString() : describe(element)};
}
