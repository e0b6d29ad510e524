#include "ElementType.h"

#include <QTest>

class TestElementType : public QObject
{
    Q_OBJECT

private slots:
    void table_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("keyword");
        QTest::addColumn<QString>("typeName");
        const char* rows[][2] = {
            {"UNKNOWN", "stUnknown"},
            {"ABOUT", "stAbout"},
            {"USERBASEDADDRESSBOOK", "stAddressBook"},
            {"BUTTON", "stButton"},
            {"CHECKBOX", "stCheckbox"},
            {"DATETIME", "stDateTIme"},
            {"DIALEDITBOX", "stDialEdit"},
            {"EDITBOX", "stEdit"},
            {"EMAILBOOK", "stEmailBook"},
            {"UNKNOWN", "stUnknown"},
            {"FLOAT", "stFloat"},
            {"POPUP", "stForm"},
            {"GROUP", "stGroup"},
            {"CARTRIDGE_ALIGN_HP_INK_MFP", "stInkCartridgeAlignMFP"},
            {"CARTRIDGE_ALIGN_HP_INK_MFP_XML", "stInkCartridgeAlignMFP_XML"},
            {"CARTRIDGE_ALIGN_HP_INK_SFP", "stInkCartridgeAlignSFP"},
            {"CARTRIDGE_ALIGN_HP_INK_SFP_XML", "stInkCartridgeAlignSFP_XML"},
            {"CARTRIDGE_CLEAN_HP_INK", "stInkCartridgeClean"},
            {"CARTRIDGE_CLEAN_HP_INK_XML", "stInkCartridgeClean_XML"},
            {"MAINTENANCE", "stInkJetMaintenance"},
            {"BUTTON_TESTPAGE_HP_INK", "stInkTestPagePrint"},
            {"BUTTON_TESTPAGE_HP_INK_XML", "stInkTestPagePrint_XML"},
            {"INTEGER", "stInteger"},
            {"IPADDRESS", "stIPAddress"},
            {"COMBOBOX", "stList"},
            {"PAPERSIZE", "stPaperSize"},
            {"PHONEBOOK", "stPhoneBook"},
            {"RADIOBUTTON", "stRadio"},
            {"SLIDER", "stSlider"},
            {"SUBNETMASK", "stSubnetMask"},
            {"TABLE", "stTable"},
            {"STATICTEXT", "stText"},
            {"WIRELESSSETTING", "stWirelessSetup"},
        };
        for (int code = 0; code <= kLastElementType; ++code)
            QTest::addRow("%d %s", code, rows[code][0])
                << code << QString::fromLatin1(rows[code][0]) << QString::fromLatin1(rows[code][1]);
    }

    void table()
    {
        QFETCH(int, code);
        QFETCH(QString, keyword);
        QFETCH(QString, typeName);
        QCOMPARE(ElementTypes::keyword(code), keyword);
        QCOMPARE(ElementTypes::typeName(code), typeName);
        if (code != etUnknown && code != etEmpty)
            QCOMPARE(int(ElementTypes::fromKeyword(keyword)), code);
    }

    void keywordEdges_data()
    {
        QTest::addColumn<QString>("keyword");
        QTest::addColumn<int>("code");
        QTest::newRow("missing") << QString() << int(etEmpty);
        QTest::newRow("empty") << QStringLiteral("") << int(etEmpty);
        QTest::newRow("subgroup") << QStringLiteral("SUBGROUP") << int(etGroup);
        QTest::newRow("lower case") << QStringLiteral("group") << int(etUnknown);
        QTest::newRow("trailing blank") << QStringLiteral("INTEGER ") << int(etUnknown);
        QTest::newRow("the unknown word") << QStringLiteral("UNKNOWN") << int(etUnknown);
        QTest::newRow("maintenance is known")
            << QStringLiteral("MAINTENANCE") << int(etInkJetMaintenance);
        QTest::newRow("rowsplit is no type") << QStringLiteral("ROWSPLIT") << int(etUnknown);
    }

    void keywordEdges()
    {
        QFETCH(QString, keyword);
        QFETCH(int, code);
        QCOMPARE(int(ElementTypes::fromKeyword(keyword)), code);
    }

    void outOfRange()
    {
        for (int code : {-1, 33, 1000}) {
            QCOMPARE(ElementTypes::keyword(code), QStringLiteral("UNKNOWN"));
            QCOMPARE(ElementTypes::typeName(code), QStringLiteral("stUnknown"));
        }
    }

    void reportableButtons()
    {
        QList<int> reportable;
        for (int code = -1; code <= kLastElementType + 1; ++code) {
            if (ElementTypes::isReportableButton(code))
                reportable << code;
        }
        QCOMPARE(reportable, (QList<int>{3, 14, 16, 18, 21}));
    }

    void fixedIds_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("ignored");
        QTest::addColumn<bool>("dateTime");
        QTest::addColumn<bool>("wireless");
        QTest::newRow("WIFIDirectSetting")
            << QStringLiteral("WIFIDirectSetting") << true << false << false;
        QTest::newRow("WiFiDirectSetting")
            << QStringLiteral("WiFiDirectSetting") << true << false << false;
        QTest::newRow("RestoreNetwork")
            << QStringLiteral("RestoreNetwork") << true << false << false;
        QTest::newRow("wifidirectsetting")
            << QStringLiteral("wifidirectsetting") << false << false << false;
        QTest::newRow("DateTime") << QStringLiteral("DateTime") << false << true << false;
        QTest::newRow("TollSaveStartTime")
            << QStringLiteral("TollSaveStartTime") << false << true << false;
        QTest::newRow("TollSaveEndTime")
            << QStringLiteral("TollSaveEndTime") << false << true << false;
        QTest::newRow("Datetime") << QStringLiteral("Datetime") << false << false << false;
        QTest::newRow("WirelessSetting")
            << QStringLiteral("WirelessSetting") << false << false << true;
        QTest::newRow("EasyWirelessSettings")
            << QStringLiteral("EasyWirelessSettings") << false << false << true;
        QTest::newRow("Gateway") << QStringLiteral("Gateway") << false << false << false;
    }

    void fixedIds()
    {
        QFETCH(QString, id);
        QFETCH(bool, ignored);
        QFETCH(bool, dateTime);
        QFETCH(bool, wireless);
        QCOMPARE(FixedIds::isIgnored(id), ignored);
        QCOMPARE(FixedIds::isDateTimeWorkaround(id), dateTime);
        QCOMPARE(FixedIds::isWirelessWorkaround(id), wireless);
    }
};

QTEST_GUILESS_MAIN(TestElementType)
#include "TestElementType.moc"
