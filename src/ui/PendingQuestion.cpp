#include "ui/PendingQuestion.h"

#include <QAbstractButton>
#include <QCoreApplication>

QMessageBox::StandardButton PendingQuestion::ask(QWidget* parent, int pending)
{
    QMessageBox box(
        QMessageBox::Question, QCoreApplication::translate("PendingQuestion", "Changes not sent"),
        pending == 1
            ? QCoreApplication::translate("PendingQuestion",
                                          "1 changed setting has not been sent to the printer.")
            : QCoreApplication::translate("PendingQuestion",
                                          "%1 changed settings have not been sent to the printer.")
                  .arg(pending),
        QMessageBox::Apply | QMessageBox::Discard | QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Cancel);
    box.button(QMessageBox::Apply)->setObjectName(QStringLiteral("pendingApply"));
    box.button(QMessageBox::Discard)->setObjectName(QStringLiteral("pendingDiscard"));
    box.button(QMessageBox::Cancel)->setObjectName(QStringLiteral("pendingCancel"));
    const int answer = box.exec();
    if (answer == QMessageBox::Apply || answer == QMessageBox::Discard)
        return QMessageBox::StandardButton(answer);
    return QMessageBox::Cancel;
}
