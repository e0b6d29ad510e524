#pragma once

#include "elements/Element.h"

// An element that holds a value, always as text: the current value and the value last
// accepted (the device's), plus an optional pattern the whole current value must match.
class ConcreteElement : public Element
{
    Q_OBJECT
    Q_PROPERTY(QString current READ current WRITE setCurrent)
    Q_PROPERTY(QString initial READ initial WRITE setInitial)

public:
    ConcreteElement(const QDomElement& node, int type, const QDomNode* parentNode,
                    Element* parentElement);

    QString current() const { return _current; }
    QString initial() const { return _initial; }
    // Plain stores: no signal, no dependency check.
    void setCurrent(const QString& value) { _current = value; }
    // The initial text is also kept as the object's name.
    void setInitial(const QString& value);
    bool isChanged() const { return _current != _initial; }

    // A value read from the device that its own pattern rejects is shown empty. That empty
    // value goes to the device only once the user edits the setting or confirms clearing it.
    void markEmptiedAtLoad() { _emptiedAtLoad = true; }
    bool isClearingPending() const { return _emptiedAtLoad && isChanged(); }
    void confirmClearing() { _emptiedAtLoad = false; }
    // The title as shown, with the id in parentheses: "Department (Dept)".
    QString shownName() const;

    QString validationPattern() const { return _pattern; }
    void setValidationPattern(const QString& pattern) { _pattern = pattern; }
    // Whole-text, case-sensitive match; an empty pattern matches everything.
    static bool matchesPattern(const QString& pattern, const QString& text);

    // The value as the dialog's list shows it.
    virtual QString displayValue() const;

    void connectSignals(QObject* receiver) override;
    bool checkConstraints(Element* initiator, bool selfChecking) override;
    bool isConcrete() const override { return true; }
    bool isValid() override;

public slots:
    void valueChange(const QString& text);

signals:
    void valueChanged(const QString& value);
    void valueReset();

private:
    QString _current;
    QString _initial;
    QString _pattern;
    bool _emptiedAtLoad = false;
};

// Visitors for a subtree walk. Both always go on; elements without a value are passed over.
// acceptChanges makes the current value the initial one; rejectChanges puts the initial one
// back and announces it.
bool acceptChanges(Element* element, void* data);
bool rejectChanges(Element* element, void* data);
