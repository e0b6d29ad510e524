#pragma once

#include "VirtualPrinter.h"

#include <QMutex>
#include <QStringList>

#include <memory>
#include <thread>

// Runs a virtual printer on a thread of the test process and keeps what it reports.
class PrinterThread
{
public:
    explicit PrinterThread(const VirtualPrinterOptions& options);
    ~PrinterThread();

    // On a terminal of its own, or on an existing master.
    bool start();
    bool attach(int masterFd);
    void stop();

    VirtualPrinter& printer() { return *virtualPrinter; }
    QString devicePath() const { return virtualPrinter->devicePath(); }
    QStringList reports();
    bool reported(const QString& line);

    // A file's bytes; empty when it cannot be read.
    static QByteArray fileText(const QString& path);

private:
    bool launch(bool ready, const QString& error);

    std::unique_ptr<VirtualPrinter> virtualPrinter;
    std::thread thread;
    QMutex mutex;
    QStringList lines;
};
