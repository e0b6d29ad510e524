#include "../app/StderrCapture.h"
#include "../elements/Rows.h"

#include "app/CapabilityLookup.h"
#include "app/Log.h"

#include <QtTest>

// The capability list read and searched for a device name: model keys, the three flags, what
// is skipped, and the lists that give every feature.
class TestCapabilityLookup : public QObject
{
    Q_OBJECT

    QTemporaryDir dir;

    // A list holding `devices`; a broken list when `devices` is null.
    QString writeList(const QByteArray& devices)
    {
        const QString name = dir.filePath("capabilities.xml");
        QFile file(name);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(devices.isNull() ? QByteArray("<root><Devices><M NAME=")
                                    : "<root>" + devices + "</root>");
        return name;
    }
    // network, buy-now button and IDS as "0" and "1".
    static QString flags(const Capabilities& c)
    {
        return QString("%1%2%3").arg(int(c.network)).arg(int(c.buyNowButton)).arg(int(c.ids));
    }

private slots:
    // The flags of the entry "Flagged" as its attributes set them, and the entry a device name
    // finds among the others.
    void lookup_data()
    {
        addRows({"attributes", "devName", "expected"},
                {{"no flags", "", "Flagged", "111"},
                 {"false", "NETWORK='false'", "Flagged", "011"},
                 {"FALSE", "BUYNOWBUTTON='FALSE'", "Flagged", "101"},
                 {"mixed case", "IDS='FaLsE'", "Flagged", "110"},
                 {"no and 0 keep it", "NETWORK='no' IDS='0'", "Flagged", "111"},
                 {"empty keeps it", "NETWORK=''", "Flagged", "111"},
                 {"all off", "NETWORK='false' BUYNOWBUTTON='false' IDS='false'", "Flagged", "000"},
                 {"underscores and capitals", "", "Ormund_InkJet_20", "100"},
                 {"blanks", "", "ormund inkjet 20", "100"},
                 {"part of a name", "", "InkJet_2", "100"},
                 {"longer name unique", "", "LX_5000", "101"},
                 {"not listed", "", "Other_Model", "111"},
                 // One key for both spellings; the later entry wins, with no warning.
                 {"key collision", "", "Laser MFP", "110"}});
    }
    void lookup()
    {
        QFETCH(QString, attributes);
        QFETCH(QString, devName);
        QFETCH(QString, expected);
        const QString list =
            writeList("<Devices><M NAME='Flagged' " + attributes.toUtf8() +
                      "/><M NAME='Ormund LX 500' NETWORK='false'/>"
                      "<M NAME='Ormund InkJet 20' IDS='false' BUYNOWBUTTON='false'/>"
                      "<M NAME='Ormund LX 5000 Pro' BUYNOWBUTTON='false'/>"
                      "<A NAME='Laser MFP' NETWORK='false'/>"
                      "<B NAME='laser_mfp' IDS='false'/></Devices>");
        QCOMPARE(flags(lookupCapabilities(list, devName)), expected);
    }

    void multipleMatchesWarnAndTakeFirst()
    {
        const QString list = writeList("<Devices><M NAME='Ormund LX 500' NETWORK='false'/>"
                                       "<M NAME='Ormund LX 5000 Pro' BUYNOWBUTTON='false'/>"
                                       "</Devices>");
        QTest::ignoreMessage(QtWarningMsg, "Multiple models match the same name <ormund lx 500>: "
                                           "<ormund_lx_500|ormund_lx_5000_pro>");
        QCOMPARE(flags(lookupCapabilities(list, "Ormund_LX_500")), QString("011"));
    }

    void skippedEntries()
    {
        const QString list = writeList("<Devices><!-- a comment --><A NAME=''/><B/>"
                                       "text<Any-Tag NAME='Ok' NETWORK='false'/></Devices>");
        logLevel = 10;
        StderrCapture capture;
        const Capabilities caps = lookupCapabilities(list, "ok");
        const QByteArray log = capture.text();
        logLevel = kDefaultLogLevel;
        QCOMPARE(flags(caps), QString("011"));
        QCOMPARE(log.count("Unexpected child node"), 2);
        QCOMPARE(log.count("Unknown model"), 2);
    }

    void unreadableGivesEverything_data()
    {
        addRows({"devices", "logLine"}, // "-": broken XML
                {{"missing file", "", ""},
                 {"broken", "-", "CapabilityParser is invalid"},
                 {"no Devices", "<Models><M NAME='M' NETWORK='false'/></Models>",
                  "CapabilityParser::parse(): can't obtain root node"}});
    }
    void unreadableGivesEverything()
    {
        QFETCH(QString, devices);
        QFETCH(QString, logLine);
        const QString list = logLine.isEmpty()
                                 ? dir.filePath("absent.xml")
                                 : writeList(devices == "-" ? QByteArray() : devices.toUtf8());
        StderrCapture capture;
        QCOMPARE(flags(lookupCapabilities(list, "M")), QString("111"));
        QVERIFY(capture.text().contains(logLine.toUtf8()));
    }
};

QTEST_MAIN(TestCapabilityLookup)
#include "TestCapabilityLookup.moc"
