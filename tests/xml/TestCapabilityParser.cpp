#include "../app/StderrCapture.h"

#include "CapabilityParser.h"
#include "Log.h"

#include <QtTest>

// The capability list: model keys, the three flags and what is skipped.
class TestCapabilityParser : public QObject
{
    Q_OBJECT

private slots:
    void flags_data();
    void flags();
    void keyCollisionLastWins();
    void skippedEntries();
    void unreadable_data();
    void unreadable();
    void modelKey_data();
    void modelKey();
};

void TestCapabilityParser::flags_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<bool>("network");
    QTest::addColumn<bool>("buyNow");
    QTest::addColumn<bool>("ids");
    QTest::newRow("none") << "" << true << true << true;
    QTest::newRow("false") << "NETWORK=\"false\"" << false << true << true;
    QTest::newRow("FALSE") << "BUYNOWBUTTON=\"FALSE\"" << true << false << true;
    QTest::newRow("mixed case") << "IDS=\"FaLsE\"" << true << true << false;
    QTest::newRow("no and 0 keep it") << "NETWORK=\"no\" IDS=\"0\"" << true << true << true;
    QTest::newRow("empty keeps it") << "NETWORK=\"\"" << true << true << true;
    QTest::newRow("all off") << "NETWORK=\"false\" BUYNOWBUTTON=\"false\" IDS=\"false\"" << false
                             << false << false;
}

void TestCapabilityParser::flags()
{
    QFETCH(QString, attributes);
    QFETCH(bool, network);
    QFETCH(bool, buyNow);
    QFETCH(bool, ids);
    CapabilityParser parser;
    QVERIFY(parser.setContent(
        QStringLiteral("<root><Devices><Model NAME=\"LX 500\" %1/></Devices></root>")
            .arg(attributes)));
    const CapabilityParser::CapabilityMap map = parser.parse();
    QCOMPARE(map.keys(), QStringList({"lx_500"}));
    QCOMPARE(map.value("lx_500").network, network);
    QCOMPARE(map.value("lx_500").buyNowButton, buyNow);
    QCOMPARE(map.value("lx_500").ids, ids);
}

void TestCapabilityParser::keyCollisionLastWins()
{
    CapabilityParser parser;
    parser.setContent(QString("<root><Devices><A NAME=\"Laser MFP\" NETWORK=\"false\"/>"
                              "<B NAME=\"laser_mfp\" IDS=\"false\"/></Devices></root>"));
    const CapabilityParser::CapabilityMap map = parser.parse();
    QCOMPARE(map.size(), 1);
    QVERIFY(map.value("laser_mfp").network);
    QVERIFY(!map.value("laser_mfp").ids);
}

void TestCapabilityParser::skippedEntries()
{
    CapabilityParser parser;
    parser.setContent(QString("<root><Devices><!-- a comment --><A NAME=\"\"/><B/>"
                              "text<Any-Tag NAME=\"Ok\"/></Devices></root>"));
    logLevel = 10;
    StderrCapture capture;
    const CapabilityParser::CapabilityMap map = parser.parse();
    const QByteArray log = capture.text();
    logLevel = kDefaultLogLevel;
    QCOMPARE(map.keys(), QStringList({"ok"}));
    QCOMPARE(log.count("Unexpected child node"), 2);
    QCOMPARE(log.count("Unknown model"), 2);
}

void TestCapabilityParser::unreadable_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QByteArray>("logLine");
    QTest::newRow("broken") << "<root><Devices>" << QByteArray("CapabilityParser is invalid");
    QTest::newRow("no Devices") << "<root><Models/></root>"
                                << QByteArray("CapabilityParser::parse(): can't obtain root node");
}

void TestCapabilityParser::unreadable()
{
    QFETCH(QString, document);
    QFETCH(QByteArray, logLine);
    CapabilityParser parser;
    parser.setContent(document);
    StderrCapture capture;
    QVERIFY(parser.parse().isEmpty());
    QVERIFY(capture.text().contains(logLine));
}

void TestCapabilityParser::modelKey_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::newRow("blanks") << "Ormund LX 500 MFP"
                            << "ormund_lx_500_mfp";
    QTest::newRow("underscores kept") << "ORMUND_LX"
                                      << "ormund_lx";
    QTest::newRow("plain") << "lx"
                           << "lx";
}

void TestCapabilityParser::modelKey()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    QCOMPARE(CapabilityParser::modelKey(name), key);
}

QTEST_MAIN(TestCapabilityParser)
#include "TestCapabilityParser.moc"
