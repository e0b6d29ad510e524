#include "io/UsbDeviceName.h"

#include <QRegularExpression>

namespace {

const QString kPrefix = QStringLiteral("usb:");
const QString kSerialKey = QStringLiteral("serial=");

// Device addresses are 1 to 127; bus numbers start at 1 and fit the three digits of
// /dev/bus/usb's folder names.
constexpr int kMaxAddress = 127;
constexpr int kMaxBus = 255;

} // namespace

UsbDeviceName UsbDeviceName::parse(const QString& path)
{
    UsbDeviceName name;
    if (!path.startsWith(kPrefix))
        return name;
    const QString rest = path.mid(kPrefix.size());
    if (rest.startsWith(kSerialKey)) {
        name.serialNumber = rest.mid(kSerialKey.size());
        name.valid = !name.serialNumber.isEmpty();
        return name;
    }
    static const QRegularExpression busAddress(
        QRegularExpression::anchoredPattern(QStringLiteral("([0-9]{1,3}):([0-9]{1,3})")));
    const QRegularExpressionMatch match = busAddress.match(rest);
    if (!match.hasMatch())
        return name;
    name.busNumber = match.captured(1).toInt();
    name.deviceAddress = match.captured(2).toInt();
    name.valid = name.busNumber >= 1 && name.busNumber <= kMaxBus && name.deviceAddress >= 1 &&
                 name.deviceAddress <= kMaxAddress;
    return name;
}
