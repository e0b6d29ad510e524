#pragma once

#include "elements/ConcreteElement.h"

// A value element that also knows the device's factory default.
class FactoryElement : public ConcreteElement
{
    Q_OBJECT
    Q_PROPERTY(QString factory READ factory)

public:
    FactoryElement(const QDomElement& node, int type, const QDomNode* parentNode,
                   Element* parentElement);

    QString factory() const { return _factory; }
    bool hasFactory() const { return _hasFactory; }

    // Puts a value into the control without the control's change signal reaching
    // valueChange(); each kind knows its control. Ends with the dependency check.
    virtual void setControlValue(const QString& value);

    bool isFactory() const override { return true; }

private:
    QString _factory;
    bool _hasFactory = false;
};
