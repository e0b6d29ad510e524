#pragma once

#include "elements/BoundaryElement.h"

#include <optional>

// An integer setting with lower limit and step. Out-of-range values are pulled back to the
// limits when validated rather than refused; a value that is not a whole number the spin box
// can hold is refused instead, so that no number is made up for it.
class NumericElement : public BoundaryElement
{
    Q_OBJECT
    Q_PROPERTY(QString min READ min WRITE minChange)
    Q_PROPERTY(QString step READ step WRITE stepChange)

public:
    NumericElement(const QDomElement& node, int type, const QDomNode* parentNode,
                   Element* parentElement);

    QString min() const { return _min; }
    QString step() const { return _step; }

    // MIN and MAX as numbers: a missing limit, or one that is not a number, is no limit. "1e3"
    // reads as 1000; a limit with decimals is rounded toward the inside of the range.
    std::optional<qint64> lowerLimit() const;
    std::optional<qint64> upperLimit() const;

    bool isValid() override;

    // A box with the caption and a SpinBox over min..max by step holding current.
    QWidget* createControl(QWidget* parent) override;
    void setControlValue(const QString& value) override;

    // Base-10; text that is not a number counts as 0.
    static int toInt(const QString& text);
    // The spin box's range: the limits, or the int range where there is none.
    int spinBottom() const;
    int spinTop() const;
    // The spin step of a STEP text: a step that is not a positive number steps by one.
    static int stepOf(const QString& text);

public slots:
    virtual void minChange(const QString& value);
    void maxChange(const QString& value) override;
    virtual void stepChange(const QString& value);

signals:
    void minChanged(const QString& value);
    void stepChanged(const QString& value);

protected:
    void applyLimits() override;
    void connectLimitSignals() override;

private:
    // Puts a limit into current and tells everyone.
    void clampTo(qint64 limit);
    // Pulls an integer setting back within its limits; false when its value is no whole
    // number within the int range.
    bool clampInteger();
    void warnIfNoNumber(const char* attribute, const QString& value) const;

    QString _min;
    QString _step;
};
