#include "SpecGenerator.h"

#include <QString>

namespace {

constexpr int kGroupSize = 40;

QString setting(int n)
{
    const QString id = QStringLiteral("S%1").arg(n);
    switch (n % 8) {
    case 0:
        return QStringLiteral("<%1 TYPE=\"INTEGER\" STRING=\"Count %2\" CURRENT=\"5\" MIN=\"1\" "
                              "MAX=\"99\" STEP=\"1\" FACTORY=\"1\"/>")
            .arg(id)
            .arg(n);
    case 1:
        return QStringLiteral("<%1 TYPE=\"COMBOBOX\" STRING=\"Mode %2\" CURRENT=\"B\" "
                              "FACTORY=\"A\"><A STRING=\"Auto\"/><B STRING=\"Best\"/>"
                              "<C STRING=\"Custom\"/></%1>")
            .arg(id)
            .arg(n);
    case 2:
        return QStringLiteral("<%1 TYPE=\"EDITBOX\" STRING=\"Name %2\" CURRENT=\"Office %2\" "
                              "MAX=\"32\"/>")
            .arg(id)
            .arg(n);
    case 3:
        return QStringLiteral("<%1 TYPE=\"CHECKBOX\" STRING=\"Flag %2\" CURRENT=\"Off\" "
                              "FACTORY=\"Off\"><Off/><On/></%1>")
            .arg(id)
            .arg(n);
    case 4:
        return QStringLiteral("<%1 TYPE=\"IPADDRESS\" STRING=\"Address %2\" "
                              "CURRENT=\"192.168.1.%3\"/>")
            .arg(id)
            .arg(n)
            .arg(n % 250 + 1);
    case 5:
        return QStringLiteral("<%1 TYPE=\"FLOAT\" STRING=\"Level %2\" CURRENT=\"0.5\" MIN=\"0.1\" "
                              "MAX=\"9.9\" DIGITS=\"1\"/>")
            .arg(id)
            .arg(n);
    case 6:
        return QStringLiteral("<%1 TYPE=\"DIALEDITBOX\" STRING=\"Fax %2\" CURRENT=\"+49 30 %2\"/>")
            .arg(id)
            .arg(n);
    default:
        return QStringLiteral("<%1 TYPE=\"RADIOBUTTON\" STRING=\"Tray %2\" CURRENT=\"T1\">"
                              "<T1/><T2/></%1>")
            .arg(id)
            .arg(n);
    }
}

} // namespace

QString SpecGenerator::changedValue(int n)
{
    switch (n % 8) {
    case 0:
        return QStringLiteral("6");
    case 1:
        return QStringLiteral("C");
    case 2:
        return QStringLiteral("Branch %1").arg(n);
    case 3:
        return QStringLiteral("On");
    case 4:
        return QStringLiteral("10.0.0.%1").arg(n % 250 + 1);
    case 5:
        return QStringLiteral("1.5");
    case 6:
        return QStringLiteral("+49 40 %1").arg(n);
    default:
        return QStringLiteral("T2");
    }
}

QByteArray SpecGenerator::generate(int settings)
{
    QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>"
                                  "<PrinterSettingsInfo>");
    for (int n = 0; n < settings; ++n) {
        if (n % kGroupSize == 0)
            text += QStringLiteral("<Group%1 STRING=\"Group %1\">").arg(n / kGroupSize);
        // The second half of every group sits in a popup form.
        if (n % kGroupSize == kGroupSize / 2)
            text += QStringLiteral("<Form%1 TYPE=\"POPUP\">").arg(n / kGroupSize);
        text += setting(n);
        const bool groupEnds = n % kGroupSize == kGroupSize - 1 || n == settings - 1;
        if (groupEnds && n % kGroupSize >= kGroupSize / 2)
            text += QStringLiteral("</Form%1>").arg(n / kGroupSize);
        if (groupEnds)
            text += QStringLiteral("</Group%1>").arg(n / kGroupSize);
    }
    text += QStringLiteral("</PrinterSettingsInfo></root>\n");
    return text.toUtf8();
}

QByteArray SpecGenerator::ofSize(int bytes)
{
    QByteArray text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root><PrinterSettingsInfo>\n");
    for (int i = 0; text.size() < bytes - 40; ++i)
        text += "<Setting" + QByteArray::number(i) +
                " TYPE=\"INTEGER\" STRING=\"Setting\" CURRENT=\"5\" MIN=\"1\" MAX=\"60\"/>\n";
    return text + "</PrinterSettingsInfo></root>\n";
}
