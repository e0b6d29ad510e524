#pragma once

#include <QString>

// A USB printer named by where it sits on the bus or by its serial number rather than by a
// driver's device node: the data channel then goes over the printer interface's bulk
// endpoints. Two forms, neither of which can be a file name in /dev:
//   usb:BUS:ADDR      bus number and device address, decimal ("usb:001:002", "usb:1:2")
//   usb:serial=TEXT   the USB device's serial number string, exactly
class UsbDeviceName
{
public:
    // Not a USB device name when `path` has neither form; the path is then a device node.
    static UsbDeviceName parse(const QString& path);

    bool isValid() const { return valid; }
    bool bySerial() const { return !serialNumber.isEmpty(); }
    int bus() const { return busNumber; }
    int address() const { return deviceAddress; }
    const QString& serial() const { return serialNumber; }

private:
    bool valid = false;
    int busNumber = 0;
    int deviceAddress = 0;
    QString serialNumber;
};
