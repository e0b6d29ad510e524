#pragma once

#include "vprinter/VirtualPrinter.h"

#include <QFile>
#include <QMutex>
#include <QStringList>

#include <thread>

// Runs a virtual printer on a thread of the test process and keeps what it reports.
class PrinterThread
{
public:
    explicit PrinterThread(const VirtualPrinterOptions& options)
        : printer(options)
    {
        printer.setReporter([this](const QString& line) {
            QMutexLocker locker(&mutex);
            lines.append(line);
        });
    }
    ~PrinterThread()
    {
        if (thread.joinable()) {
            printer.stop();
            thread.join();
        }
    }
    // On a terminal of its own, or on an existing master.
    bool start(int masterFd = -1)
    {
        QString error;
        if (!(masterFd < 0 ? printer.start(&error) : printer.attach(masterFd, &error))) {
            qWarning("virtual printer: %s", qPrintable(error));
            return false;
        }
        thread = std::thread([this] { printer.run(); });
        return true;
    }
    QStringList reports()
    {
        QMutexLocker locker(&mutex);
        return lines;
    }
    static QByteArray fileText(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    VirtualPrinter printer;

private:
    std::thread thread;
    QMutex mutex;
    QStringList lines;
};
