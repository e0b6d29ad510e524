#include "elements/SecretField.h"

#include <QCoreApplication>
#include <QLayout>
#include <QLineEdit>
#include <QToolButton>

void SecretField::protect(QLineEdit* edit, QWidget* box)
{
    edit->setEchoMode(QLineEdit::Password);
    auto* toggle = new QToolButton(box);
    toggle->setObjectName(QStringLiteral("showSecret"));
    toggle->setCheckable(true);
    toggle->setText(QCoreApplication::translate("SecretField", "Show"));
    toggle->setToolTip(QCoreApplication::translate("SecretField", "Show or hide the text"));
    toggle->setAccessibleName(QCoreApplication::translate("SecretField", "Show the text"));
    QObject::connect(toggle, &QToolButton::toggled, edit, [edit, toggle](bool shown) {
        edit->setEchoMode(shown ? QLineEdit::Normal : QLineEdit::Password);
        toggle->setText(shown ? QCoreApplication::translate("SecretField", "Hide")
                              : QCoreApplication::translate("SecretField", "Show"));
    });
    if (box && box->layout())
        box->layout()->addWidget(toggle);
}
