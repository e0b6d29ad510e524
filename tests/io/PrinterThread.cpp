#include "PrinterThread.h"

#include <QDebug>
#include <QFile>

PrinterThread::PrinterThread(const VirtualPrinterOptions& options)
    : virtualPrinter(std::make_unique<VirtualPrinter>(options))
{
    virtualPrinter->setReporter([this](const QString& line) {
        QMutexLocker locker(&mutex);
        lines.append(line);
    });
}

PrinterThread::~PrinterThread()
{
    stop();
}

bool PrinterThread::start()
{
    QString error;
    return launch(virtualPrinter->start(&error), error);
}

bool PrinterThread::attach(int masterFd)
{
    QString error;
    return launch(virtualPrinter->attach(masterFd, &error), error);
}

bool PrinterThread::launch(bool ready, const QString& error)
{
    if (!ready) {
        qWarning() << "virtual printer:" << error;
        return false;
    }
    thread = std::thread([this] { virtualPrinter->run(); });
    return true;
}

void PrinterThread::stop()
{
    if (!thread.joinable())
        return;
    virtualPrinter->stop();
    thread.join();
}

QStringList PrinterThread::reports()
{
    QMutexLocker locker(&mutex);
    return lines;
}

bool PrinterThread::reported(const QString& line)
{
    return reports().contains(line);
}

QByteArray PrinterThread::fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
