#include "../elements/Rows.h"
#include "TavProcess.h"
#include "app/ProgramPaths.h"

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

    static QStringList lines(const QByteArray& text)
    {
        return QString::fromLocal8Bit(text).split('\n', Qt::SkipEmptyParts);
    }

    static bool hasPrefix(const QString& line)
    {
        static const QRegularExpression re(
            "^\\d{2}\\.\\d{2}:\\d{2}\\.\\d{3}\\|\\d+\\.[0-9A-F]+\\|[^|]+:\\d+\\|[^|]*\\| ");
        return re.match(line).hasMatch();
    }

private slots:
    void endsAtOnce_data()
    {
        columns<QStringList, int, QByteArray>({"arguments", "status", "err"});
        const QByteArray usage = "Usage: tav <devPath> <devName>\n";
        QTest::newRow("nothing") << QStringList() << 1 << usage;
        QTest::newRow("one word") << QStringList{"/dev/usb/lp97"} << 1 << usage;
        QTest::newRow("help alone is still short") << QStringList{"--help"} << 1 << usage;
        QTest::newRow("debug alone") << QStringList{"debug"} << 1 << usage;
        QTest::newRow("help last") << QStringList{"lp0", "--help"} << 0 << QByteArray();
        QTest::newRow("help first") << QStringList{"--help", "a", "b"} << 0 << QByteArray();
        QTest::newRow("help with debug") << QStringList{"debug", "--help"} << 0 << QByteArray();
    }
    void endsAtOnce()
    {
        const auto [arguments, status, err] = fetch<QStringList, int, QByteArray>();
        const Run r = TavProcess::run(arguments);
        QCOMPARE(r.status, status);
        QCOMPARE(r.err, err);
        QCOMPARE(r.out, QByteArray());
    }

    void ordinaryStart()
    {
        // A relative device path names a file in the program's folder; a printer that is not
        // there must not turn into a plain file there. "--HELP" and "--help=1" are not the
        // option: the program goes on.
        const QString device = QString("lp-missing-%1").arg(QCoreApplication::applicationPid());
        const Run r = TavProcess::run({device, "--HELP", "--help=1"}, kNoDevice);
        QCOMPARE(r.status, Run::kStopped);
        QVERIFY(!QFile::exists(TAV_BIN_DIR "/" + device));
        const QStringList out = lines(r.err);
        QVERIFY2(out.contains("arg[0] = " + TavProcess::path()), r.err.constData());
        QVERIFY(out.contains("arg[1] = " + device));
        QVERIFY(out.contains("arg[2] = --HELP"));
        QVERIFY(out.contains("arg[3] = --help=1"));
        QVERIFY(out.contains(QString("Qt version: build: <%1> run: <%2>")
                                 .arg(QString::number(QT_VERSION, 16), qVersion())));
        // The working directory changes from where the program was started to its own folder.
        QCOMPARE(out.filter("QDir::currentDirPath=<"),
                 (QStringList{"QDir::currentDirPath=<" + QDir::tempPath() + ">",
                              "QDir::currentDirPath=<" + QDir(TAV_BIN_DIR).canonicalPath() + ">"}));
        for (const QString& line : out)
            QVERIFY2(!hasPrefix(line), qPrintable(line));
        QVERIFY(!r.err.contains("_applicationFilePath"));
    }

    void debugAnywhere_data()
    {
        columns<QStringList, int>({"arguments", "debugIndex"});
        QTest::newRow("after") << QStringList{"/dev/usb/lp97", "M", "debug"} << 3;
        QTest::newRow("first") << QStringList{"debug", "/dev/usb/lp97", "M"} << 1;
        QTest::newRow("as devName") << QStringList{"/dev/usb/lp97", "debug"} << 2;
    }
    void debugAnywhere()
    {
        const auto [arguments, debugIndex] = fetch<QStringList, int>();
        const Run r = TavProcess::run(arguments, kNoDevice);
        QCOMPARE(r.status, Run::kStopped);
        const QStringList out = lines(r.err);
        QVERIFY(!out.isEmpty());
        // The first line carries the prefix: the level rose before anything was logged.
        QVERIFY2(hasPrefix(out.first()), qPrintable(out.first()));
        for (const QString& line : out.filter("arg["))
            QVERIFY2(hasPrefix(line), qPrintable(line));
        QVERIFY(r.err.contains(QString("| arg[%1] = debug\n").arg(debugIndex).toLatin1()));
        QVERIFY(r.err.contains(
            "| _applicationFilePath='" +
            QFile::encodeName(QFileInfo(TavProcess::path()).canonicalFilePath()) + "'\n"));
        QVERIFY(r.err.contains("| programDir=<" + QFile::encodeName(QDir::cleanPath(TAV_BIN_DIR)) +
                               ">\n"));
    }

    void programDir_data()
    {
        columns<QString, QString, QString>({"argv0", "path", "expected"});
        const QString bin = TAV_BIN_DIR;
        const QString cwd = QDir::currentPath();
        QTest::newRow("absolute") << "/opt/x/../tav/bin/tav" << QString() << "/opt/tav/bin";
        QTest::newRow("relative with slash")
            << "sub/dir/tav" << QString() << QDir::cleanPath(cwd + "/sub/dir");
        QTest::newRow("dot slash") << "./tav" << QString() << cwd;
        QTest::newRow("bare, found on second PATH entry")
            << "tav"
            << "/nonexistent:" + bin + ":/usr/bin" << QDir::cleanPath(bin);
        QTest::newRow("bare, first PATH entry wins") << "sh"
                                                     << "/bin:/usr/bin"
                                                     << "/bin";
        QTest::newRow("bare, not found") << "no-such-program-here"
                                         << "/nonexistent:/also/not" << QString();
    }
    void programDir()
    {
        const auto [argv0, path, expected] = texts<3>();
        QCOMPARE(programDirFromArgument(QFile::encodeName(argv0), QFile::encodeName(path)),
                 expected);
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "TestCommandLine.moc"
