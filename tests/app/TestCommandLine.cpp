#include "ProgramPaths.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

// Runs the built program as a process, the way the printing system starts it.
class TestCommandLine : public QObject
{
    Q_OBJECT

    struct Run
    {
        int status = -1;
        QByteArray out;
        QByteArray err;
    };

    static QString tavPath() { return QStringLiteral(TAV_BIN_DIR "/tav"); }

    // Qt warns on standard error when the session has no runtime folder; give it one so
    // that only the program's own lines are read.
    static QProcessEnvironment environment()
    {
        static QTemporaryDir runtime;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
        return env;
    }

    static Run run(const QStringList& arguments, const QString& program = tavPath(),
                   const QProcessEnvironment& env = environment())
    {
        QProcess process;
        process.setProcessEnvironment(env);
        process.setWorkingDirectory(QDir::tempPath());
        process.start(program, arguments);
        Run result;
        if (!process.waitForFinished(30000)) {
            process.kill();
            return result;
        }
        result.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
        result.out = process.readAllStandardOutput();
        result.err = process.readAllStandardError();
        return result;
    }

    static QStringList lines(const QByteArray& text)
    {
        return QString::fromLocal8Bit(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    static const QRegularExpression& prefix()
    {
        static const QRegularExpression re(QStringLiteral(
            "^\\d{2}\\.\\d{2}:\\d{2}\\.\\d{3}\\|\\d+\\.[0-9A-F]+\\|[^|]+:\\d+\\|[^|]*\\| "));
        return re;
    }

private slots:
    void shortLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << QStringList();
        QTest::newRow("one word") << QStringList{QStringLiteral("/dev/usb/lp0")};
        QTest::newRow("help alone is still short") << QStringList{QStringLiteral("--help")};
        QTest::newRow("debug alone") << QStringList{QStringLiteral("debug")};
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
        QTest::newRow("last") << QStringList{QStringLiteral("lp0"), QStringLiteral("--help")};
        QTest::newRow("first") << QStringList{QStringLiteral("--help"), QStringLiteral("a"),
                                              QStringLiteral("b")};
        QTest::newRow("with debug")
            << QStringList{QStringLiteral("debug"), QStringLiteral("--help")};
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
        // "--HELP" and "--help=1" are device names, not the option.
        const Run r = run({QStringLiteral("--HELP"), QStringLiteral("--help=1")});
        QCOMPARE(r.status, 0);
        QVERIFY(r.err.contains("arg[1] = --HELP"));
    }

    void ordinaryStart()
    {
        const Run r = run({QStringLiteral("/dev/usb/lp9"), QStringLiteral("Laser MFP")});
        const QStringList out = lines(r.err);
        QVERIFY2(out.contains(QStringLiteral("arg[0] = ") + tavPath()), r.err.constData());
        QVERIFY(out.contains(QStringLiteral("arg[1] = /dev/usb/lp9")));
        QVERIFY(out.contains(QStringLiteral("arg[2] = Laser MFP")));
        QVERIFY(out.contains(
            QStringLiteral("Qt version: build: <%1> run: <%2>")
                .arg(QString::number(QT_VERSION, 16), QString::fromLatin1(qVersion()))));
        // The working directory changes from where the program was started to its own folder.
        const QStringList dirs = out.filter(QStringLiteral("QDir::currentDirPath=<"));
        QCOMPARE(dirs.size(), 2);
        QCOMPARE(dirs.at(0), QStringLiteral("QDir::currentDirPath=<%1>").arg(QDir::tempPath()));
        QCOMPARE(dirs.at(1), QStringLiteral("QDir::currentDirPath=<%1>")
                                 .arg(QDir(QStringLiteral(TAV_BIN_DIR)).canonicalPath()));
        for (const QString& line : out)
            QVERIFY2(!prefix().match(line).hasMatch(), qPrintable(line));
        QVERIFY(!r.err.contains("_applicationFilePath"));
    }

    void debugAnywhere_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("debugIndex");
        QTest::newRow("after") << QStringList{QStringLiteral("/dev/usb/lp0"), QStringLiteral("M"),
                                              QStringLiteral("debug")}
                               << 3;
        QTest::newRow("first") << QStringList{QStringLiteral("debug"),
                                              QStringLiteral("/dev/usb/lp0"), QStringLiteral("M")}
                               << 1;
        QTest::newRow("as devName")
            << QStringList{QStringLiteral("/dev/usb/lp0"), QStringLiteral("debug")} << 2;
    }

    void debugAnywhere()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, debugIndex);
        const Run r = run(arguments);
        const QStringList out = lines(r.err);
        QVERIFY(!out.isEmpty());
        // Every line carries the prefix, the first one included: the level rose before
        // anything was logged.
        for (const QString& line : out)
            QVERIFY2(prefix().match(line).hasMatch(), qPrintable(line));
        QVERIFY(r.err.contains(QStringLiteral("| arg[%1] = debug\n").arg(debugIndex).toLatin1()));
        QVERIFY(r.err.contains(QStringLiteral("| _applicationFilePath='%1'\n")
                                   .arg(QFileInfo(tavPath()).canonicalFilePath())
                                   .toLocal8Bit()));
    }

    void startedThroughPath()
    {
        QProcessEnvironment env = environment();
        env.insert(QStringLiteral("PATH"), QStringLiteral("/nonexistent:") +
                                               QStringLiteral(TAV_BIN_DIR) +
                                               QStringLiteral(":/usr/bin"));
        // A shell that finds the program along PATH passes the bare name as argv[0].
        QProcess process;
        process.setProcessEnvironment(env);
        process.setWorkingDirectory(QDir::tempPath());
        process.start(QStringLiteral("/bin/sh"),
                      {QStringLiteral("-c"), QStringLiteral("tav lp0 M debug")});
        QVERIFY(process.waitForFinished(30000));
        QVERIFY(process.readAllStandardError().contains(
            QStringLiteral("programDir=<%1>")
                .arg(QDir::cleanPath(QStringLiteral(TAV_BIN_DIR)))
                .toLocal8Bit()));
    }

    void programDir_data()
    {
        QTest::addColumn<QString>("argv0");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("expected");
        const QString bin = QStringLiteral(TAV_BIN_DIR);
        const QString cwd = QDir::currentPath();
        QTest::newRow("absolute") << QStringLiteral("/opt/x/../tav/bin/tav") << QString()
                                  << QStringLiteral("/opt/tav/bin");
        QTest::newRow("relative with slash") << QStringLiteral("sub/dir/tav") << QString()
                                             << QDir::cleanPath(cwd + QStringLiteral("/sub/dir"));
        QTest::newRow("dot slash") << QStringLiteral("./tav") << QString() << cwd;
        QTest::newRow("bare, found on second PATH entry")
            << QStringLiteral("tav")
            << QStringLiteral("/nonexistent:") + bin + QStringLiteral(":/usr/bin")
            << QDir::cleanPath(bin);
        QTest::newRow("bare, first PATH entry wins")
            << QStringLiteral("sh") << QStringLiteral("/bin:/usr/bin") << QStringLiteral("/bin");
        QTest::newRow("bare, not found") << QStringLiteral("no-such-program-here")
                                         << QStringLiteral("/nonexistent:/also/not") << QString();
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
