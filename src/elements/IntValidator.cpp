#include "elements/IntValidator.h"

#include "elements/DeviceNumber.h"

IntValidator::IntValidator(int bottom, int top, QObject* parent)
    : QIntValidator(bottom, top, parent)
{
}

void IntValidator::fixup(QString& text) const
{
    // The desktop's form first ("1,500"), then the plain one; text that is neither is left
    // for the spin box to replace with its last value rather than read as a number.
    bool ok = false;
    qint64 value = locale().toLongLong(text.trimmed(), &ok);
    if (!ok) {
        const std::optional<qint64> plain = DeviceNumber::integer(text);
        if (!plain && !text.trimmed().isEmpty())
            return;
        value = plain.value_or(0);
    }
    if (value < bottom())
        text = QString::number(bottom());
    else if (value > top())
        text = QString::number(top());
}
