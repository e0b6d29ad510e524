#pragma once

#include <QString>

// Whether the user may open a printer's device node at all. A node that belongs to root and
// the "lp" group is the usual reason an ordinary user's printer cannot be reached; saying so,
// with the remedy, beats the generic failure.
class DeviceAccess
{
public:
    // One line naming the node and the remedy when the node exists but this user may not
    // read and write it; empty when permission is not what stands in the way. A USB device
    // name (UsbDeviceName) stands for its /dev/bus/usb node.
    static QString permissionProblem(const QString& path);

private:
    static QString nodeOf(const QString& path);
};
