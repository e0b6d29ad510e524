#include "xml/IdentitySettings.h"

const QStringList& IdentitySettings::ids()
{
    static const QStringList list{
        QStringLiteral("IPAddress"),    QStringLiteral("SubnetMask"),
        QStringLiteral("Gateway"),      QStringLiteral("IPv6Address"),
        QStringLiteral("HostName"),     QStringLiteral("NodeName"),
        QStringLiteral("DomainName"),   QStringLiteral("DeviceName"),
        QStringLiteral("BonjourName"),  QStringLiteral("DeviceLocation"),
        QStringLiteral("AssetNumber"),  QStringLiteral("MACAddress"),
        QStringLiteral("SerialNumber"), QStringLiteral("WirelessSSID"),
    };
    return list;
}

bool IdentitySettings::contains(const QString& id)
{
    return ids().contains(id);
}
