#include "io/PrinterMonitor.h"

#include <QSocketNotifier>

#include <libudev.h>

PrinterMonitor::PrinterMonitor(QObject* parent)
    : QObject(parent)
    , context(udev_new())
{
    if (!context)
        return;
    monitor = udev_monitor_new_from_netlink(context, "udev");
    if (!monitor)
        return;
    udev_monitor_filter_add_match_subsystem_devtype(monitor, "usbmisc", nullptr);
    if (udev_monitor_enable_receiving(monitor) < 0) {
        udev_monitor_unref(monitor);
        monitor = nullptr;
        return;
    }
    notifier = new QSocketNotifier(udev_monitor_get_fd(monitor), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &PrinterMonitor::receive);
}

PrinterMonitor::~PrinterMonitor()
{
    delete notifier;
    if (monitor)
        udev_monitor_unref(monitor);
    if (context)
        udev_unref(context);
}

void PrinterMonitor::receive()
{
    udev_device* device = udev_monitor_receive_device(monitor);
    if (!device)
        return;
    const char* action = udev_device_get_action(device);
    const QByteArray name = udev_device_get_sysname(device);
    udev_device_unref(device);
    if (action && name.startsWith("lp"))
        emit printersChanged();
}
