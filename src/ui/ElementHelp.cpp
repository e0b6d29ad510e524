#include "ui/ElementHelp.h"

#include "elements/AcceptedCharacters.h"
#include "elements/DialEditElement.h"
#include "elements/EditElement.h"
#include "elements/FloatElement.h"
#include "elements/NumericElement.h"

#include <QLineEdit>
#include <QStringList>
#include <QTextDocument>
#include <QTreeWidgetItem>
#include <QWidget>

#include <cmath>

namespace {

// A float limit or step as the device writes it; a missing or zero step is one unit of the
// last decimal shown.
QString deviceNumber(const QString& text, double fallback, int decimals)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (ok && value != 0 && std::isfinite(value))
        return text.trimmed();
    return QString::number(fallback, 'f', decimals);
}

QString rangeText(const QString& lower, const QString& upper, const QString& step)
{
    if (!lower.isEmpty() && !upper.isEmpty())
        return ElementHelp::tr("%1 – %2, step %3").arg(lower, upper, step);
    if (!lower.isEmpty())
        return ElementHelp::tr("from %1, step %2").arg(lower, step);
    if (!upper.isEmpty())
        return ElementHelp::tr("up to %1, step %2").arg(upper, step);
    return ElementHelp::tr("step %1").arg(step);
}

} // namespace

QString ElementHelp::numberRange(const Element* element)
{
    if (const auto* decimal = qobject_cast<const FloatElement*>(element)) {
        const int decimals = decimal->decimals();
        const bool hasLower = std::isfinite(decimal->decimalBottom());
        const bool hasUpper = std::isfinite(decimal->decimalTop());
        return rangeText(hasLower ? deviceNumber(decimal->min(), 0, decimals) : QString(),
                         hasUpper ? deviceNumber(decimal->max(), 0, decimals) : QString(),
                         deviceNumber(decimal->step(), decimal->decimalStep(), decimals));
    }
    const auto* numeric = qobject_cast<const NumericElement*>(element);
    const std::optional<qint64> lower = numeric->lowerLimit();
    const std::optional<qint64> upper = numeric->upperLimit();
    return rangeText(lower ? QString::number(*lower) : QString(),
                     upper ? QString::number(*upper) : QString(),
                     QString::number(NumericElement::stepOf(numeric->step())));
}

QString ElementHelp::accepts(const Element* element)
{
    if (qobject_cast<const NumericElement*>(element))
        return numberRange(element);
    if (qobject_cast<const EditElement*>(element) || qobject_cast<const DialEditElement*>(element))
        return AcceptedCharacters::describe(
            static_cast<const ConcreteElement*>(element)->validationPattern());
    return QString();
}

QString ElementHelp::plainText(const Element* element)
{
    if (!element)
        return QString();
    QStringList lines;
    const QString description = element->description().trimmed();
    if (!description.isEmpty() && description != element->title())
        lines.append(description);
    const QString rule = accepts(element);
    if (!rule.isEmpty())
        lines.append(rule);
    return lines.join(QLatin1Char('\n'));
}

QString ElementHelp::richText(const Element* element)
{
    const QString text = plainText(element);
    return text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

void ElementHelp::applyToControl(Element* element, QWidget* box)
{
    if (!element || !box)
        return;
    const QString help = richText(element);
    if (help.isEmpty())
        return;
    QWidget* input = element->control();
    for (QWidget* widget : {box, input}) {
        if (widget) {
            widget->setToolTip(help);
            widget->setWhatsThis(help);
        }
    }
    if (auto* edit = qobject_cast<QLineEdit*>(input))
        edit->setPlaceholderText(accepts(element));
}

void ElementHelp::applyToRow(QTreeWidgetItem* row, const Element* element)
{
    const QString help = richText(element);
    if (!row || help.isEmpty())
        return;
    for (int column = 0; column < 2; ++column) {
        row->setToolTip(column, help);
        row->setWhatsThis(column, help);
    }
}
