#pragma once

#include "elements/ComplexElement.h"

class PopupForm;

// A group edited in a modal popup form of its own and applied on its own.
class FormElement : public ComplexElement
{
    Q_OBJECT

public:
    FormElement(const QDomElement& node, int type, const QDomNode* parentNode,
                Element* parentElement, IElementFactory* factory);
    ~FormElement() override;

    // DEFAULT="TRUE": the popup offers its Default button.
    bool isDefault() const { return _default; }
    // The open popup form; null while none is shown.
    PopupForm* form() const { return m_pForm; }

    void connectSignals(QObject* receiver) override;

    // A push button with the form's title and "..." that opens the form.
    QWidget* createControl(QWidget* parent) override;

    // Visitors over the form's children: the first invalid value stops the walk and clears
    // the bool that data points to; factoryReset puts the factory values back.
    static bool validateChanges(Element* element, void* data);
    static bool factoryReset(Element* element, void* data);

public slots:
    void showForm();
    void okBtnClicked();
    void cancelBtnClicked();
    void helpBtnClicked();
    void defaultBtnClicked();
    void enableApplyButton();
    // The settings dialog could not apply the form's changes (printer refused or out of
    // reach): the next okBtnClicked() keeps the form open with the edits pending.
    void setApplyRefused();

signals:
    void applyClicked();

protected:
    PopupForm* m_pForm = nullptr;

private:
    // Steps of showForm(): the form with the children's controls, and its removal.
    void buildForm();
    // Close or Escape with values not yet sent: true to let the form close.
    bool mayClose();
    void dismantleForm();
    // Visitor: stores the first element that fails validation in the Element* data points to.
    static bool findInvalid(Element* element, void* data);

    bool _default;
    bool _applyRefused = false;
};
