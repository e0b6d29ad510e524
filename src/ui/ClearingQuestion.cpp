#include "ui/ClearingQuestion.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

ClearingQuestion::ClearingQuestion(const QStringList& settings, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("ClearingQuestion"));
    setWindowTitle(tr("Clear settings"));
    auto* layout = new QVBoxLayout(this);
    auto* intro = new QLabel(tr("The printer's values of these settings could not be validated "
                                "and are shown empty.\nApplying now clears them on the printer "
                                "as well:"),
                             this);
    auto* list = new QLabel(settings.join(QLatin1Char('\n')), this);
    list->setObjectName(QStringLiteral("settingsLabel"));
    list->setIndent(20);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* clear = buttons->addButton(tr("Clear and apply"), QDialogButtonBox::AcceptRole);
    clear->setObjectName(QStringLiteral("clearBtn"));
    QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cancelBtn"));
    cancel->setDefault(true); // clearing is never the answer by accident
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(intro);
    layout->addWidget(list);
    layout->addWidget(buttons);
}

bool ClearingQuestion::confirm(const QStringList& settings, QWidget* parent)
{
    ClearingQuestion question(settings, parent);
    return question.exec() == QDialog::Accepted;
}
