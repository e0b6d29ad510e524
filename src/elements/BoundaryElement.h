#pragma once

#include "elements/FactoryElement.h"

// A value element with an upper limit ("MAX"): the largest number, or the longest text.
class BoundaryElement : public FactoryElement
{
    Q_OBJECT
    Q_PROPERTY(QString max READ max WRITE maxChange)

public:
    BoundaryElement(const QDomElement& node, int type, const QDomNode* parentNode,
                    Element* parentElement);

    QString max() const { return _max; }
    bool hasMax() const { return _hasMax; }
    // The longest text an edit control takes: MAX when it is a positive number, else the
    // toolkit's own limit.
    int maxLength() const;

public slots:
    virtual void maxChange(const QString& value);

signals:
    void maxChanged(const QString& value);

protected:
    // Brings an existing control in line with the limits after one of them changed; the
    // value is left alone (validation pulls it back into range).
    virtual void applyLimits();
    // Connects the limit signals to their slots when the first control is created; the
    // connection then stays (the slots manage without a control), so creating and deleting
    // controls again costs no rewiring.
    void wireLimits();
    virtual void connectLimitSignals();

private:
    QString _max;
    bool _hasMax = false;
    bool _limitsWired = false;
};
