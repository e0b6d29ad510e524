#include "ui/PopupForm.h"

PopupForm::PopupForm(QWidget* parent)
    : QDialog(parent)
{
    setupUi(this);
}

void PopupForm::reject()
{
    if (!_closeCheck || _closeCheck())
        QDialog::reject();
}

void PopupForm::addControl(QWidget* control)
{
    if (control)
        panelLayout->addWidget(control);
}
