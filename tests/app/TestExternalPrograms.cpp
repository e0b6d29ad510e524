#include "ExternalPrograms.h"
#include "ProgramPaths.h"
#include "StderrCapture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace ExternalPrograms;

namespace {

// A stand-in program that records each argument it receives on a line of its own.
void writeRecorder(const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > \"$0.args\"\n");
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QStringList recorded(const QString& program)
{
    QFile file(program + QString(".args"));
    for (int i = 0; i < 500 && !file.exists(); ++i)
        QTest::qWait(10);
    QTest::qWait(20);
    if (!file.open(QIODevice::ReadOnly))
        return {QString("<nothing recorded>")};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

class TestExternalPrograms : public QObject
{
    Q_OBJECT

private slots:
    void shellQuote_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("quoted");
        QTest::newRow("device path") << QString("/dev/usb/lp0") << QString("/dev/usb/lp0");
        QTest::newRow("safe punctuation")
            << QString("a.b_c-d:e=f,g+h@i%j") << QString("a.b_c-d:e=f,g+h@i%j");
        QTest::newRow("blank") << QString("/dev/usb/my lp0") << QString("'/dev/usb/my lp0'");
        QTest::newRow("empty") << QString() << QString("''");
        QTest::newRow("single quote") << QString("it's") << QString("'it'\\''s'");
        QTest::newRow("command substitution") << QString("$(id)") << QString("'$(id)'");
        QTest::newRow("address with & and ;") << QString("http://host/?a=1&b=2;touch /tmp/x")
                                              << QString("'http://host/?a=1&b=2;touch /tmp/x'");
        QTest::newRow("non-ASCII") << QString("Dr\u00fccker") << QString("'Dr\u00fccker'");
        QTest::newRow("newline") << QString("a\nb") << QString("'a\nb'");
    }

    void shellQuote()
    {
        QFETCH(QString, word);
        QFETCH(QString, quoted);
        QCOMPARE(ExternalPrograms::shellQuote(word), quoted);
    }

    void commandShape()
    {
        QCOMPARE(launchCommand(QString("/opt/T/WirelessSetup/bin/wirelesssetup"),
                               {QString("/dev/usb/lp0")}),
                 QString("'/opt/T/WirelessSetup/bin/wirelesssetup' /dev/usb/lp0 &"));
        QCOMPARE(launchCommand(QString("/a b/it's"), {QString("x"), QString("y z")}),
                 QString("'/a b/it'\\''s' x 'y z' &"));
    }

    void launchers_data()
    {
        QTest::addColumn<int>("which");
        QTest::addColumn<QString>("program");
        QTest::newRow("wireless") << 0 << WirelessSetupPath;
        QTest::newRow("address book") << 1 << AddressBookPath;
        QTest::newRow("email book") << 2 << EmailBookPath;
        QTest::newRow("phone book") << 3 << PhoneBookPath;
    }

    void launchers()
    {
        QFETCH(int, which);
        QFETCH(QString, program);
        // A program folder with a blank, and a device path that tries to run a command.
        QTemporaryDir root;
        const QString programDir = root.filePath(QString("Tavolor Suite/Tav/bin"));
        QDir().mkpath(programDir);
        const QString sibling = QDir::cleanPath(programDir + QLatin1Char('/') + program);
        writeRecorder(sibling);
        const QString hostile =
            QString("/dev/usb/my lp0;touch ") + root.filePath(QString("INJECTED"));

        StderrCapture capture;
        bool (*const run[])(const QString&, const QStringList&) = {runWirelessSetup, runAddressBook,
                                                                   runEmailBook, runPhoneBook};
        QVERIFY(run[which](programDir, {hostile, QString("plain")}));
        const QByteArray log = capture.text();
        QCOMPARE(recorded(sibling), (QStringList{hostile, "plain"}));
        QVERIFY(!QFile::exists(root.filePath(QString("INJECTED"))));
        QVERIFY2(log.contains("Command: '" + QFile::encodeName(sibling) + "' '" + hostile.toUtf8() +
                              "' plain &\n"),
                 log.constData());
    }

    void missingSiblingStillCountsAsStarted()
    {
        QTemporaryDir root;
        QVERIFY(runPhoneBook(root.filePath(QString("Tav/bin")), {QString("/dev/usb/lp0")}));
    }

    void bookConfiguration_data()
    {
        QTest::addColumn<QString>("description");
        QTest::newRow("with text") << QString("<PhoneBook TYPE=\"PHONEBOOK\"/>");
        QTest::newRow("empty text still empties the file") << QString();
    }

    void bookConfiguration()
    {
        QFETCH(QString, description);
        QTemporaryDir root;
        const QString programDir = root.filePath(QString("Tav/bin"));
        QDir().mkpath(programDir);
        const QString sibling = QDir::cleanPath(programDir + QLatin1Char('/') + PhoneBookPath);
        writeRecorder(sibling);
        const QString config = QDir::cleanPath(programDir + QLatin1Char('/') + PhoneBookConfig);
        {
            QFile stale(config);
            QVERIFY(stale.open(QIODevice::WriteOnly));
            stale.write("old contents");
        }
        QVERIFY(startBook(programDir, PhoneBookPath, PhoneBookConfig, description,
                          QString("/dev/usb/lp1")));
        QCOMPARE(recorded(sibling), (QStringList{"/dev/usb/lp1", config}));
        QFile file(config);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(file.readAll()), description);
    }

    void browserOrderAndQuoting()
    {
        QTemporaryDir root;
        const QString konqueror = root.filePath(QString("konqueror"));
        const QString firefox = root.filePath(QString("firefox"));
        writeRecorder(konqueror);
        writeRecorder(firefox);
        const QString address =
            QString("http://host/?a=1&b=2;touch ") + root.filePath(QString("INJECTED"));
        StderrCapture capture;
        StartWebBrowser(address, {root.filePath(QString("mozilla")), konqueror, firefox});
        const QByteArray log = capture.text();
        QCOMPARE(recorded(konqueror), QStringList{address});
        QVERIFY(!QFile::exists(firefox + QString(".args")));
        QVERIFY(!QFile::exists(root.filePath(QString("INJECTED"))));
        QVERIFY2(log.contains("StartWebBrowser command : \"" + QFile::encodeName(konqueror) + " '" +
                              address.toUtf8() + "' &\""),
                 log.constData());
    }

    void noBrowserTellsTheAddress()
    {
        QString shown;
        QTimer::singleShot(0, this, [&shown] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            shown = box->windowTitle() + QLatin1Char('|') + box->text();
            box->accept();
        });
        StartWebBrowser(QString("http://192.0.2.7/"), {QString("/nonexistent/browser")});
        QCOMPARE(shown,
                 QString("Warning|Web browser not found.\nUse that address:\nhttp://192.0.2.7/"));
    }

    void resolvePaths_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("resolved");
        QTest::newRow("empty") << QString() << QString("/opt/Tav/bin");
        QTest::newRow("dot slash") << QString("./tav.xml") << QString("/opt/Tav/bin/tav.xml");
        QTest::newRow("parent") << QString("../share/capabilities.xml")
                                << QString("/opt/Tav/share/capabilities.xml");
        QTest::newRow("sibling") << WirelessSetupPath
                                 << QString("/opt/WirelessSetup/bin/wirelesssetup");
        QTest::newRow("plain") << QString("dependencies.xml")
                               << QString("/opt/Tav/bin/dependencies.xml");
    }

    void resolvePaths()
    {
        QFETCH(QString, name);
        QFETCH(QString, resolved);
        QCOMPARE(resolveProgramPath(QString("/opt/Tav/bin"), name), resolved);
    }
};

QTEST_MAIN(TestExternalPrograms)
#include "TestExternalPrograms.moc"
