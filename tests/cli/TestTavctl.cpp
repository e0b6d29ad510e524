#include "../ui/VirtualPrinterProcess.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// tavctl as a shell runs it, against the virtual printer.
class TestTavctl : public QObject
{
    Q_OBJECT

private:
    struct Run
    {
        int status = -1;
        QByteArray out;
        QByteArray err;
    };

    static Run tavctl(const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
        env.remove(QStringLiteral("LANGUAGE"));
        process.setProcessEnvironment(env);
        process.start(QStringLiteral(TAV_BIN_DIR "/tavctl"), arguments);
        process.waitForFinished(30000);
        return {process.exitCode(), process.readAllStandardOutput(),
                process.readAllStandardError()};
    }
    // Fills in the names of the printer and of the backups made in initTestCase().
    QStringList expand(const QStringList& arguments, const QString& device) const
    {
        QStringList out;
        for (QString argument : arguments)
            out.append(argument.replace(QStringLiteral("DEV"), device)
                           .replace(QStringLiteral("DIR"), folder.path()));
        return out;
    }
    static QString laser() { return QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml"); }

    QTemporaryDir folder;

private slots:
    void initTestCase()
    {
        const Run other = tavctl({QStringLiteral("export"), QStringLiteral("--spec"),
                                  QStringLiteral(TAV_DATA_DIR "/inkjet_mfp.xml"),
                                  QStringLiteral("-o"), folder.filePath("inkjet.xml")});
        QCOMPARE(other.status, 0);
        const Run own = tavctl({QStringLiteral("export"), QStringLiteral("--spec"), laser()});
        QCOMPARE(own.status, 0);
        QFile truncated(folder.filePath("truncated.xml"));
        QVERIFY(truncated.open(QIODevice::WriteOnly));
        truncated.write(own.out.left(own.out.size() / 2));
        QFile hostile(folder.filePath("hostile.xml"));
        QVERIFY(hostile.open(QIODevice::WriteOnly));
        hostile.write("<?xml version=\"1.0\"?><!DOCTYPE b [<!ENTITY a \"aaaa\">]>"
                      "<TavolorBackup format=\"1\"><Settings>&a;</Settings></TavolorBackup>");
    }

    void setThenGet()
    {
        QTemporaryDir place;
        VirtualPrinterProcess printer(laser(), place.path());
        QVERIFY(printer.isReady());
        QCOMPARE(
            tavctl({QStringLiteral("set"), printer.link, QStringLiteral("SleepTimer=30"),
                    QStringLiteral("DisplayLanguage=Français"), QStringLiteral("ImageShiftX=-1.5")})
                .status,
            0);
        const Run got = tavctl({QStringLiteral("get"), printer.link, QStringLiteral("SleepTimer"),
                                QStringLiteral("DisplayLanguage"), QStringLiteral("ImageShiftX")});
        QCOMPARE(got.out, QByteArray("30\nFrench\n-1.5\n"));
    }

    void dryRunSendsNothing()
    {
        QTemporaryDir place;
        VirtualPrinterProcess printer(laser(), place.path());
        const Run dry = tavctl({QStringLiteral("set"), printer.link,
                                QStringLiteral("SleepTimer=30"), QStringLiteral("--dry-run")});
        QCOMPARE(dry.status, 0);
        QVERIFY(dry.out.contains("<SleepTimer CURRENT=\"30\"/>"));
        QCOMPARE(tavctl({QStringLiteral("get"), printer.link, QStringLiteral("SleepTimer")}).out,
                 QByteArray("5\n"));
    }

    // Every row holds an acceptable change too: none of it may reach the printer.
    void refused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("message");
        const auto set = [](const QString& bad) {
            return QStringList{QStringLiteral("set"), QStringLiteral("DEV"),
                               QStringLiteral("SleepTimer=30"), bad};
        };
        QTest::newRow("above range") << set("LowTonerAlertLevel=105") << 2
                                     << "LowTonerAlertLevel: the value '105' is refused: a whole "
                                        "number from 0 to 100 in steps of 5";
        QTest::newRow("off step") << set("LowTonerAlertLevel=12") << 2 << "in steps of 5";
        QTest::newRow("not a number") << set("LowTonerAlertLevel=ten") << 2 << "'ten' is refused";
        QTest::newRow("decimal off step") << set("ImageShiftX=0.3") << 2 << "in steps of 0.5";
        QTest::newRow("decimal below its digits") << set("ImageShiftY=0.25") << 2 << "steps of 0.1";
        QTest::newRow("unknown choice") << set("Duplex=Sideways") << 2 << "one of: Off (Off)";
        QTest::newRow("unknown id") << set("Nonsense=1") << 2
                                    << "Nonsense: the value '1' is "
                                       "refused: no such setting";
        QTest::newRow("character") << set("AssetNumber=inv_1") << 2 << "AssetNumber";
        QTest::newRow("too long") << set("AssetNumber=ABCDEFGHIJKLMNOPQ") << 2 << "at most 16";
        QTest::newRow("address") << set("IPAddress=10.0.0.256") << 2 << "an IPv4 address";
        QTest::newRow("mask") << set("IPFilterMask=255.0.255.0") << 2 << "a subnet mask";
        QTest::newRow("read-only") << set("ModelName=X") << 2 << "read-only";
        QTest::newRow("disabled") << set("TonerSaveLevel=High") << 2
                                  << "disabled by the value of TonerSave";
        QTest::newRow("disabled by another")
            << set("IPConfigMethod=DHCP") + QStringList{"IPAddress=10.0.0.9"} << 2
            << "IPAddress: the value '10.0.0.9' is refused";
        QTest::newRow("not ID=VALUE") << set("SleepTimer") << 1 << "is not ID=VALUE";
        QTest::newRow("other model")
            << QStringList{"import", "DEV", "DIR/inkjet.xml"} << 2 << "--force imports it anyway";
        QTest::newRow("truncated backup")
            << QStringList{"import", "DEV", "DIR/truncated.xml"} << 2 << "truncated.xml is refused";
        QTest::newRow("hostile backup") << QStringList{"import", "DEV", "DIR/hostile.xml"} << 2
                                        << "entity declarations are not accepted";
        QTest::newRow("no such device")
            << QStringList{"get", "DIR/absent", "SleepTimer"} << 4 << "cannot open the device";
    }

    void refused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, message);
        QTemporaryDir place;
        VirtualPrinterProcess printer(laser(), place.path());
        const Run run = tavctl(expand(arguments, printer.link));
        QCOMPARE(run.status, status);
        QVERIFY2(run.err.contains(message.toUtf8()), run.err.constData());
        QVERIFY(!printer.stateText().contains("CURRENT=\"30\""));
    }

    void cloneLeavesIdentityAlone()
    {
        QTemporaryDir place;
        QTemporaryDir otherPlace;
        VirtualPrinterProcess first(laser(), place.path());
        VirtualPrinterProcess second(laser(), otherPlace.path());
        QCOMPARE(
            tavctl({"set", first.link, "SleepTimer=45", "IPAddress=10.1.2.3", "Duplex=Off"}).status,
            0);
        const QString backup = place.filePath("a.xml");
        QCOMPARE(tavctl({"export", first.link, "-o", backup}).status, 0);
        const Run imported = tavctl({"import", second.link, backup});
        QCOMPARE(imported.status, 0);
        QVERIFY(imported.out.contains("changed: SleepTimer, Duplex"));
        QCOMPARE(tavctl({"get", second.link, "SleepTimer", "Duplex", "IPAddress"}).out,
                 QByteArray("45\nOff\n192.168.10.42\n"));
        QCOMPARE(tavctl({"diff", backup, second.link}).out,
                 QByteArray("~ IPAddress = 10.1.2.3 -> 192.168.10.42\n"));
    }
};

QTEST_GUILESS_MAIN(TestTavctl)
#include "TestTavctl.moc"
