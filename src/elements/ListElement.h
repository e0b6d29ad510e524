#pragma once

#include "elements/FactoryElement.h"
#include "elements/ParameterList.h"

#include <QStringList>

class Parameter;
class QButtonGroup;
class QComboBox;

// A setting whose value is the id of one of its parameters: check box, radio group, combo box
// or paper size.
class ListElement : public FactoryElement
{
    Q_OBJECT

public:
    typedef void (*ParameterFunction)(Parameter* parameter, void* data);

    ListElement(const QDomElement& node, int type, const QDomNode* parentNode,
                Element* parentElement);

    const ParameterList& parameters() const { return _parameters; }

    // Lookups count and return visible parameters only; ids compare exactly.
    int findParameterIndex(const QString& value) const;
    Parameter* parameterAt(int index) const;
    Parameter* findParameter(const QString& value) const;
    // Every parameter, hidden ones included.
    void iterateParameters(ParameterFunction fn, void* data);

    // The title of the current parameter, else of the factory one, else "Unknown parameter".
    QString currentText() const;
    QString displayValue() const override;

    // The filter constraints apply to a parameter, data pointing to the allowed values (a
    // QStringList) or null: a visible parameter stays visible only when its id occurs inside
    // one of the allowed strings; without a list it becomes visible.
    static void filterParameter(Parameter* parameter, void* data);

    void setControlValue(const QString& value) override;

    // Check box, radio group or combo box by type code, captioned in a box.
    QWidget* createControl(QWidget* parent) override;
    void deleteControl() override;
    // Rebuilds the items of an existing control from the visible parameters and selects
    // current again, without the control's change signal reaching onClick(). For constraints
    // that have shown or hidden parameters.
    void refreshControl();

    // The radio button number of a parameter id: the CRC-16 of its bytes.
    static int buttonId(const QString& parameterId);

    bool prepareConstraints() override;
    bool translateElement(const Translator& translator) override;
    bool isList() const override { return true; }

public slots:
    void onClick();

protected:
    // The input widget alone, wired to onClick() and stored as the control; table cells use
    // it bare.
    QWidget* createInput(QWidget* parent);

private:
    QWidget* createCheckBox(QWidget* parent);
    QWidget* createRadioGroup(QWidget* parent);
    QWidget* createComboBox(QWidget* parent);
    // The group's buttons, one per visible parameter, with current (else factory) checked.
    void fillRadioGroup(QButtonGroup* group, QWidget* box);
    void fillComboBox(QComboBox* combo);
    void selectInControl(const QString& value);

    // The control's change signal, as a SIGNAL() text, and its sender.
    QObject* changeSender(const char** signal) const;
    // Stores a choice made in the control; dependencies run only on a real change.
    void choose(const QString& value);

    ParameterList _parameters;
};
