#include "ui/InkStepPage.h"

#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

InkStepPage::InkStepPage(const QString& title, const QString& text, const QString& picture,
                         QWidget* parent)
    : QWizardPage(parent)
    , bodyLayout(new QVBoxLayout)
    , errorLabel(new QLabel(this))
{
    setTitle(title);
    auto* layout = new QVBoxLayout(this);
    auto* textLabel = new QLabel(text, this);
    textLabel->setObjectName(QStringLiteral("textLabel"));
    textLabel->setWordWrap(true);
    layout->addWidget(textLabel);
    if (!picture.isEmpty()) {
        auto* pictureLabel = new QLabel(this);
        pictureLabel->setObjectName(QStringLiteral("pictureLabel"));
        pictureLabel->setPixmap(QPixmap(picture));
        pictureLabel->setAlignment(Qt::AlignCenter);
        layout->addWidget(pictureLabel);
    }
    layout->addLayout(bodyLayout);
    layout->addStretch();
    errorLabel->setObjectName(QStringLiteral("errorLabel"));
    errorLabel->setWordWrap(true);
    errorLabel->setStyleSheet(QStringLiteral("color: #b71c1c"));
    errorLabel->hide();
    layout->addWidget(errorLabel);
}

void InkStepPage::setAction(const QString& label, Action newAction)
{
    action = std::move(newAction);
    setCommitPage(true); // what the printer has done cannot be taken back by going back
    setButtonText(QWizard::CommitButton, label);
}

QString InkStepPage::failure() const
{
    return errorLabel->isHidden() ? QString() : errorLabel->text();
}

bool InkStepPage::validatePage()
{
    if (!action)
        return true;
    errorLabel->hide();
    const QString reason = action();
    if (reason.isEmpty())
        return true;
    showFailure(reason);
    return false;
}

void InkStepPage::showFailure(const QString& reason)
{
    errorLabel->setText(
        tr("%1\n\nPress \"%2\" to try again, or Cancel to close.")
            .arg(reason, QString(buttonText(QWizard::CommitButton)).remove(QLatin1Char('&'))));
    errorLabel->show();
}
