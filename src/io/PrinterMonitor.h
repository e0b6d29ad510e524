#pragma once

#include <QObject>

class QSocketNotifier;
struct udev;
struct udev_monitor;

// Tells when a usblp printer appears or goes away, from udev's events, without polling.
class PrinterMonitor : public QObject
{
    Q_OBJECT

public:
    explicit PrinterMonitor(QObject* parent = nullptr);
    ~PrinterMonitor() override;

    bool isActive() const { return monitor != nullptr; }

signals:
    void printersChanged();

private:
    void receive();

    udev* context = nullptr;
    udev_monitor* monitor = nullptr;
    QSocketNotifier* notifier = nullptr;
};
