#include "elements/DateTimeElement.h"

#include "elements/ControlBox.h"
#include "elements/TraceLog.h"

#include <QDateTimeEdit>
#include <QDomElement>

const QString DateTimeElement::valueFormat = QStringLiteral("yyyy-MM-dd hh:mm");

DateTimeElement::DateTimeElement(const QDomElement& node, int type, const QDomNode* parentNode,
                                 Element* parentElement)
    : FactoryElement(node, type, parentNode, parentElement)
{
    if (!format().isNull())
        setDisplayFormat(format());
}

void DateTimeElement::setDisplayFormat(const QString& format)
{
    TAV_TRACE(10, "DateTimeElement::setDisplayFormat(%s)", qPrintable(format));
    Element::setFormat(format);
    setAmPm(format.endsWith(QLatin1String("AM/PM")));
}

void DateTimeElement::setAmPm(bool flag)
{
    TAV_TRACE(10, "_ampm=%i ampm=%i", int(_ampm), int(flag));
    if (flag == _ampm)
        return;
    _ampm = flag;
    applyTimeDisplay();
}

void DateTimeElement::applyTimeDisplay()
{
    // Hours, minutes and seconds, with the AM/PM indicator when asked for.
    if (auto* editor = qobject_cast<QDateTimeEdit*>(control()))
        editor->setDisplayFormat(_ampm ? QStringLiteral("yyyy-MM-dd hh:mm:ss AP")
                                       : QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

QDateTime DateTimeElement::parseValue(const QString& text)
{
    const auto field = [&text](int position, int length) {
        bool ok = false;
        const int value = text.mid(position, length).toInt(&ok, 10);
        return ok ? value : 0;
    };
    // UTC: a local clock change must not move a time that the device keeps as plain text.
    return QDateTime(QDate(field(0, 4), field(5, 2), field(8, 2)),
                     QTime(field(11, 2), field(14, 2), 0, 0), Qt::UTC);
}

QString DateTimeElement::displayValue() const
{
    return parseValue(current()).toString(_ampm ? valueFormat + QStringLiteral(" AP")
                                                : valueFormat);
}

void DateTimeElement::setControlValue(const QString& value)
{
    if (auto* editor = qobject_cast<QDateTimeEdit*>(control())) {
        const QSignalBlocker blocker(editor);
        editor->setDateTime(parseValue(value));
    }
    FactoryElement::setControlValue(value);
}

QWidget* DateTimeElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "%s", "");
    QWidget* box = ControlBox::create(parent, title(), Qt::AlignRight | Qt::AlignVCenter);
    auto* editor = new QDateTimeEdit(box);
    // The value is wall-clock text of the device: no conversion to or from local time.
    editor->setTimeSpec(Qt::UTC);
    ControlBox::addInput(box, editor, title());
    setControl(editor);
    applyTimeDisplay();
    editor->setDateTime(parseValue(current()));
    connect(editor, SIGNAL(dateTimeChanged(const QDateTime&)), this,
            SLOT(valueChange(const QDateTime&)));
    checkConstraints(nullptr, true);
    return box;
}

void DateTimeElement::valueChange(const QDateTime& dateTime)
{
    const QString text = dateTime.toString(valueFormat);
    TAV_TRACE(10, "value='%s'", qPrintable(text));
    valueChange(text);
}
