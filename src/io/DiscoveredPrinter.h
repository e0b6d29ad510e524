#pragma once

#include <QList>
#include <QString>

// One USB printer: its usblp device node (without that driver, its USB device name,
// "usb:BUS:ADDR"), and who it is according to its IEEE 1284 device ID, with the USB device's own
// strings where the ID says nothing.
struct DiscoveredPrinter
{
    QString node;
    QString manufacturer;
    QString model;
    QString serial;
    QString framing; // "IDS" when the device ID lists that command set, else "TAV"
    QString deviceId;
};

typedef QList<DiscoveredPrinter> DiscoveredPrinters;
