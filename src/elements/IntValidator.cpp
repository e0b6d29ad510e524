#include "elements/IntValidator.h"

IntValidator::IntValidator(int bottom, int top, QObject* parent)
    : QIntValidator(bottom, top, parent)
{
}

void IntValidator::fixup(QString& text) const
{
    bool ok = false;
    int value = text.toInt(&ok, 10);
    if (!ok)
        value = 0;
    if (value < bottom())
        text = QString::number(bottom());
    else if (value > top())
        text = QString::number(top());
}
