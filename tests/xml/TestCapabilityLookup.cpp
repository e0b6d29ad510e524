#include "CapabilityLookup.h"

#include <QTemporaryDir>
#include <QtTest>

// Looking a device name up in the capability list.
class TestCapabilityLookup : public QObject
{
    Q_OBJECT

private:
    QString writeList(const QByteArray& text);
    QTemporaryDir dir;

private slots:
    void lookup_data();
    void lookup();
    void multipleMatchesWarnAndTakeFirst();
    void missingFileGivesEverything();
    void brokenFileGivesEverything();
};

QString TestCapabilityLookup::writeList(const QByteArray& text)
{
    const QString name = dir.filePath("capabilities.xml");
    QFile file(name);
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(text);
    return name;
}

const QByteArray kList = "<root><Devices>"
                         "<M NAME=\"Ormund LX 500\" NETWORK=\"false\"/>"
                         "<M NAME=\"Ormund InkJet 20\" IDS=\"false\" BUYNOWBUTTON=\"false\"/>"
                         "<M NAME=\"Ormund LX 5000 Pro\" BUYNOWBUTTON=\"false\"/>"
                         "</Devices></root>";

void TestCapabilityLookup::lookup_data()
{
    QTest::addColumn<QString>("devName");
    QTest::addColumn<bool>("network");
    QTest::addColumn<bool>("buyNow");
    QTest::addColumn<bool>("ids");
    QTest::newRow("underscores and capitals") << "Ormund_InkJet_20" << true << false << false;
    QTest::newRow("blanks") << "ormund inkjet 20" << true << false << false;
    QTest::newRow("part of a name") << "InkJet_2" << true << false << false;
    QTest::newRow("longer name unique") << "LX_5000" << true << false << true;
    QTest::newRow("not listed") << "Other_Model" << true << true << true;
}

void TestCapabilityLookup::lookup()
{
    QFETCH(QString, devName);
    QFETCH(bool, network);
    QFETCH(bool, buyNow);
    QFETCH(bool, ids);
    const Capabilities caps = lookupCapabilities(writeList(kList), devName);
    QCOMPARE(caps.network, network);
    QCOMPARE(caps.buyNowButton, buyNow);
    QCOMPARE(caps.ids, ids);
}

void TestCapabilityLookup::multipleMatchesWarnAndTakeFirst()
{
    QTest::ignoreMessage(QtWarningMsg, "Multiple models match the same name <ormund lx 500>: "
                                       "<ormund_lx_500|ormund_lx_5000_pro>");
    const Capabilities caps = lookupCapabilities(writeList(kList), "Ormund_LX_500");
    QVERIFY(!caps.network);
    QVERIFY(caps.buyNowButton);
}

void TestCapabilityLookup::missingFileGivesEverything()
{
    const Capabilities caps = lookupCapabilities(dir.filePath("absent.xml"), "Ormund_LX_500");
    QVERIFY(caps.network && caps.buyNowButton && caps.ids);
}

void TestCapabilityLookup::brokenFileGivesEverything()
{
    const Capabilities caps = lookupCapabilities(writeList("<root><Devices><M NAME="), "M");
    QVERIFY(caps.network && caps.buyNowButton && caps.ids);
}

QTEST_MAIN(TestCapabilityLookup)
#include "TestCapabilityLookup.moc"
