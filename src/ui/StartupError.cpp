#include "ui/StartupError.h"

#include "app/Log.h"

#include <QMessageBox>
#include <QPushButton>

QString StartupError::text(const QString& cause, const QString& devPath)
{
    const QString reason = cause.isEmpty() ? tr("The reason is not known.") : cause;
    return QCoreApplication::translate("main", "Cannot get printer settings!") + QLatin1Char('\n') +
           reason + QLatin1Char('\n') + tr("Device: %1").arg(devPath);
}

bool StartupError::askRetry(const QString& cause, const QString& devPath, QWidget* parent)
{
    TAV_LOG(9, "%s",
            qPrintable(QCoreApplication::translate("main", "Cannot get printer settings!")));
    QMessageBox box(QMessageBox::Critical, QCoreApplication::translate("main", "Error"),
                    text(cause, devPath), QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* retry = box.addButton(tr("&Retry"), QMessageBox::AcceptRole);
    retry->setObjectName(QStringLiteral("retryButton"));
    QPushButton* close = box.addButton(tr("&Close"), QMessageBox::RejectRole);
    close->setObjectName(QStringLiteral("closeButton"));
    // Return must not start another wait on a device that is not there.
    box.setDefaultButton(close);
    box.setEscapeButton(close);
    box.exec();
    return box.clickedButton() == retry;
}
