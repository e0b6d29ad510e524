#include "app/DeviceTask.h"

#include <QApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

void DeviceTask::run(const QString& label, const std::function<void()>& work, QWidget* parent)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        work();
        return;
    }
    QThread* thread = QThread::create(work);
    QEventLoop loop;
    QObject::connect(thread, &QThread::finished, &loop, &QEventLoop::quit);

    QProgressDialog progress(label, QString(), 0, 0, parent);
    progress.setObjectName(QStringLiteral("deviceProgress"));
    progress.setWindowTitle(QApplication::applicationDisplayName());
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setCancelButton(nullptr);
    progress.setMinimumDuration(0);
    progress.reset(); // a fresh QProgressDialog shows itself after its own delay otherwise
    progress.hide();
    QTimer showLater;
    showLater.setSingleShot(true);
    QObject::connect(&showLater, &QTimer::timeout, &progress, &QProgressDialog::show);
    showLater.start(kProgressDelayMs);

    thread->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread->wait();
    delete thread;
}
