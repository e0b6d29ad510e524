#include "ProgramPaths.h"
#include "TavProcess.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

// Runs the built program as a process, the way the printing system starts it.
class TestCommandLine : public QObject
{
    Q_OBJECT

    using Run = TavProcess::Run;

    // Past the command line the program asks the device for its settings; none of the
    // devices named here exists, so it says so and would then wait for the user.
    static constexpr const char* kNoDevice = "Cannot get printer settings!";

    static QString tavPath() { return TavProcess::path(); }

    static Run run(const QStringList& arguments, const QByteArray& until = QByteArray())
    {
        return TavProcess::run(arguments, until);
    }

    static QStringList lines(const QByteArray& text)
    {
        return QString::fromLocal8Bit(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    static const QRegularExpression& prefix()
    {
        static const QRegularExpression re(QString(
            "^\\d{2}\\.\\d{2}:\\d{2}\\.\\d{3}\\|\\d+\\.[0-9A-F]+\\|[^|]+:\\d+\\|[^|]*\\| "));
        return re;
    }

private slots:
    void shortLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << QStringList();
        QTest::newRow("one word") << QStringList{"/dev/usb/lp97"};
        QTest::newRow("help alone is still short") << QStringList{"--help"};
        QTest::newRow("debug alone") << QStringList{"debug"};
    }

    void shortLine()
    {
        QFETCH(QStringList, arguments);
        const Run r = run(arguments);
        QCOMPARE(r.status, 1);
        QCOMPARE(r.err, QByteArray("Usage: tav <devPath> <devName>\n"));
        QCOMPARE(r.out, QByteArray());
    }

    void help_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("last") << QStringList{"lp0", "--help"};
        QTest::newRow("first") << QStringList{"--help", "a", "b"};
        QTest::newRow("with debug") << QStringList{"debug", "--help"};
    }

    void help()
    {
        QFETCH(QStringList, arguments);
        const Run r = run(arguments);
        QCOMPARE(r.status, 0);
        QCOMPARE(r.err, QByteArray());
        QCOMPARE(r.out, QByteArray());
    }

    void optionsMatchWholeEntries()
    {
        // "--HELP" and "--help=1" are device names, not the option: the program goes on.
        const Run r = run({QString("--HELP"), QString("--help=1")}, kNoDevice);
        QCOMPARE(r.status, Run::kStopped);
        QVERIFY(r.err.contains("arg[1] = --HELP"));
    }

    void ordinaryStart()
    {
        const Run r = run({QString("/dev/usb/lp9"), QString("Laser MFP")}, kNoDevice);
        QCOMPARE(r.status, Run::kStopped);
        const QStringList out = lines(r.err);
        QVERIFY2(out.contains(QString("arg[0] = ") + tavPath()), r.err.constData());
        QVERIFY(out.contains(QString("arg[1] = /dev/usb/lp9")));
        QVERIFY(out.contains(QString("arg[2] = Laser MFP")));
        QVERIFY(out.contains(
            QString("Qt version: build: <%1> run: <%2>")
                .arg(QString::number(QT_VERSION, 16), QString::fromLatin1(qVersion()))));
        // The working directory changes from where the program was started to its own folder.
        const QStringList dirs = out.filter(QString("QDir::currentDirPath=<"));
        QCOMPARE(dirs.size(), 2);
        QCOMPARE(dirs.at(0), QString("QDir::currentDirPath=<%1>").arg(QDir::tempPath()));
        QCOMPARE(
            dirs.at(1),
            QString("QDir::currentDirPath=<%1>").arg(QDir(QString(TAV_BIN_DIR)).canonicalPath()));
        for (const QString& line : out)
            QVERIFY2(!prefix().match(line).hasMatch(), qPrintable(line));
        QVERIFY(!r.err.contains("_applicationFilePath"));
    }

    void missingDeviceIsNotCreated()
    {
        // A relative device path names a file in the program's folder; a printer that is not
        // there must not turn into a plain file there.
        const QString device = QString("lp-missing-%1").arg(QCoreApplication::applicationPid());
        const Run r = run({device, QString("M")}, kNoDevice);
        QCOMPARE(r.status, Run::kStopped);
        QVERIFY(!QFile::exists(QString(TAV_BIN_DIR "/") + device));
    }

    void debugAnywhere_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("debugIndex");
        QTest::newRow("after") << QStringList{"/dev/usb/lp97", "M", "debug"} << 3;
        QTest::newRow("first") << QStringList{"debug", "/dev/usb/lp97", "M"} << 1;
        QTest::newRow("as devName") << QStringList{"/dev/usb/lp97", "debug"} << 2;
    }

    void debugAnywhere()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, debugIndex);
        const Run r = run(arguments, kNoDevice);
        QCOMPARE(r.status, Run::kStopped);
        const QStringList out = lines(r.err);
        QVERIFY(!out.isEmpty());
        // The first line carries the prefix: the level rose before anything was logged.
        QVERIFY2(prefix().match(out.first()).hasMatch(), qPrintable(out.first()));
        for (const QString& line : out.filter(QString("arg[")))
            QVERIFY2(prefix().match(line).hasMatch(), qPrintable(line));
        QVERIFY(r.err.contains(QString("| arg[%1] = debug\n").arg(debugIndex).toLatin1()));
        QVERIFY(r.err.contains(QString("| _applicationFilePath='%1'\n")
                                   .arg(QFileInfo(tavPath()).canonicalFilePath())
                                   .toLocal8Bit()));
    }

    void startedThroughPath()
    {
        QProcessEnvironment env = TavProcess::environment();
        env.insert(QString("PATH"),
                   QString("/nonexistent:") + QString(TAV_BIN_DIR) + QString(":/usr/bin"));
        // A shell that finds the program along PATH passes the bare name as argv[0].
        const Run r = TavProcess::run({QString("-c"), QString("exec tav lp97 M debug")}, kNoDevice,
                                      QString("/bin/sh"), env);
        QCOMPARE(r.status, Run::kStopped);
        QVERIFY(r.err.contains(
            QString("programDir=<%1>").arg(QDir::cleanPath(QString(TAV_BIN_DIR))).toLocal8Bit()));
    }

    void programDir_data()
    {
        QTest::addColumn<QString>("argv0");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("expected");
        const QString bin = QString(TAV_BIN_DIR);
        const QString cwd = QDir::currentPath();
        QTest::newRow("absolute") << QString("/opt/x/../tav/bin/tav") << QString()
                                  << QString("/opt/tav/bin");
        QTest::newRow("relative with slash")
            << QString("sub/dir/tav") << QString() << QDir::cleanPath(cwd + QString("/sub/dir"));
        QTest::newRow("dot slash") << QString("./tav") << QString() << cwd;
        QTest::newRow("bare, found on second PATH entry")
            << QString("tav") << QString("/nonexistent:") + bin + QString(":/usr/bin")
            << QDir::cleanPath(bin);
        QTest::newRow("bare, first PATH entry wins")
            << QString("sh") << QString("/bin:/usr/bin") << QString("/bin");
        QTest::newRow("bare, not found")
            << QString("no-such-program-here") << QString("/nonexistent:/also/not") << QString();
    }

    void programDir()
    {
        QFETCH(QString, argv0);
        QFETCH(QString, path);
        QFETCH(QString, expected);
        QCOMPARE(programDirFromArgument(QFile::encodeName(argv0), QFile::encodeName(path)),
                 expected);
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "TestCommandLine.moc"
