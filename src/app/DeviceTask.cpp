#include "app/DeviceTask.h"

#include "app/Configurator.h"

#include <QApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

namespace {

constexpr int kFinishCheckMs = 20;

} // namespace

void DeviceTask::run(const QString& label, const std::function<void()>& work, QWidget* parent)
{
    DeviceTask task;
    task.execute(label, work, false, parent);
}

void DeviceTask::run(const QString& label, const std::function<void(ExchangeProgress&)>& work,
                     QWidget* parent)
{
    DeviceTask task;
    task.execute(
        label, [&work, &task] { work(task); }, true, parent);
}

// Called on the worker thread; the dialog outlives it.
void DeviceTask::waitingForAnswer()
{
    if (!dialog)
        return;
    QMetaObject::invokeMethod(
        dialog.data(),
        [this] {
            dialog->setLabelText(
                label + QLatin1Char('\n') +
                QCoreApplication::translate("DeviceTask", "Waiting for the printer to answer..."));
            dialog->show();
        },
        Qt::QueuedConnection);
}

void DeviceTask::setUpDialog(QProgressDialog& progress, bool cancellable)
{
    progress.setObjectName(QStringLiteral("deviceProgress"));
    progress.setWindowTitle(Configurator::applicationTitle());
    progress.setWindowModality(Qt::ApplicationModal);
    if (cancellable) {
        progress.setCancelButtonText(QCoreApplication::translate("DeviceTask", "Cancel"));
        QObject::connect(&progress, &QProgressDialog::canceled, &progress,
                         [this] { cancelRequested.store(true); });
    } else {
        progress.setCancelButton(nullptr);
    }
    progress.setMinimumDuration(0);
    progress.reset(); // a fresh QProgressDialog shows itself after its own delay otherwise
    progress.hide();
}

// Until the dialog shows, input to the other windows waits; once it shows, it is modal and
// its Cancel button takes clicks.
void DeviceTask::execute(const QString& text, const std::function<void()>& work, bool cancellable,
                         QWidget* parent)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        work();
        return;
    }
    QThread* thread = QThread::create(work);
    label = text;
    QProgressDialog progress(label, QString(), 0, 0, parent);
    dialog = &progress;
    setUpDialog(progress, cancellable);

    QEventLoop quiet;
    QObject::connect(thread, &QThread::finished, &quiet, &QEventLoop::quit);
    QTimer showLater;
    showLater.setSingleShot(true);
    QObject::connect(&showLater, &QTimer::timeout, &quiet, &QEventLoop::quit);
    showLater.start(kProgressDelayMs);
    thread->start();
    quiet.exec(QEventLoop::ExcludeUserInputEvents);

    if (!thread->isFinished()) {
        progress.show();
        // Checked in steps as well: a quit that came before this loop ran would be lost.
        QEventLoop modal;
        QObject::connect(thread, &QThread::finished, &modal, &QEventLoop::quit);
        QTimer check;
        QObject::connect(&check, &QTimer::timeout, &modal, [thread, &modal] {
            if (thread->isFinished())
                modal.quit();
        });
        check.start(kFinishCheckMs);
        modal.exec(cancellable ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    }
    thread->wait();
    delete thread;
}
