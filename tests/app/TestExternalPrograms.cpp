#include "../elements/Rows.h"
#include "StderrCapture.h"
#include "app/ExternalPrograms.h"
#include "app/ProgramPaths.h"

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
    QFile file(program + ".args");
    for (int i = 0; i < 500 && !file.exists(); ++i)
        QTest::qWait(10);
    QTest::qWait(20);
    if (!file.open(QIODevice::ReadOnly))
        return {"<nothing recorded>"};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

class TestExternalPrograms : public QObject
{
    Q_OBJECT

private slots:
    void shellQuote_data()
    {
        addRows({"word", "quoted"},
                {{"device path", "/dev/usb/lp0", "/dev/usb/lp0"},
                 {"safe punctuation", "a.b_c-d:e=f,g+h@i%j", "a.b_c-d:e=f,g+h@i%j"},
                 {"blank", "/dev/usb/my lp0", "'/dev/usb/my lp0'"},
                 {"empty", "", "''"},
                 {"single quote", "it's", "'it'\\''s'"},
                 {"command substitution", "$(id)", "'$(id)'"},
                 {"address with & and ;", "http://host/?a=1&b=2;touch /tmp/x",
                  "'http://host/?a=1&b=2;touch /tmp/x'"},
                 {"non-ASCII", "Dr\u00fccker", "'Dr\u00fccker'"},
                 {"newline", "a\nb", "'a\nb'"}});
    }

    void shellQuote()
    {
        const auto [word, quoted] = texts<2>();
        QCOMPARE(ExternalPrograms::shellQuote(word), quoted);
    }

    void launchers_data()
    {
        columns<int, QString>({"which", "program"});
        QTest::newRow("wireless") << 0 << WirelessSetupPath;
        QTest::newRow("address book") << 1 << AddressBookPath;
        QTest::newRow("email book") << 2 << EmailBookPath;
        QTest::newRow("phone book") << 3 << PhoneBookPath;
    }

    void launchers()
    {
        const auto [which, program] = fetch<int, QString>();
        // A program folder with a blank, and a device path that tries to run a command.
        QTemporaryDir root;
        const QString programDir = root.filePath("Tavolor Suite/Tav/bin");
        QDir().mkpath(programDir);
        const QString sibling = QDir::cleanPath(programDir + QLatin1Char('/') + program);
        writeRecorder(sibling);
        const QString hostile = "/dev/usb/my lp0;touch " + root.filePath("INJECTED");

        StderrCapture capture;
        bool (*const run[])(const QString&, const QStringList&) = {runWirelessSetup, runAddressBook,
                                                                   runEmailBook, runPhoneBook};
        QVERIFY(run[which](programDir, {hostile, "plain"}));
        const QByteArray log = capture.text();
        QCOMPARE(recorded(sibling), (QStringList{hostile, "plain"}));
        QVERIFY(!QFile::exists(root.filePath("INJECTED")));
        // A sibling that is not installed still counts as started: the shell reports it.
        QVERIFY(run[which](root.filePath("elsewhere"), {"/dev/usb/lp0"}));
        QVERIFY2(log.contains("Command: '" + QFile::encodeName(sibling) + "' '" + hostile.toUtf8() +
                              "' plain &\n"),
                 log.constData());
    }

    void bookConfiguration_data()
    {
        QTest::addColumn<QString>("description");
        QTest::newRow("with text") << "<PhoneBook TYPE=\"PHONEBOOK\"/>";
        QTest::newRow("empty text still empties the file") << QString();
    }

    void bookConfiguration()
    {
        QFETCH(QString, description);
        QTemporaryDir root;
        const QString programDir = root.filePath("Tav/bin");
        QDir().mkpath(programDir);
        const QString sibling = QDir::cleanPath(programDir + QLatin1Char('/') + PhoneBookPath);
        writeRecorder(sibling);
        const QString config = QDir::cleanPath(programDir + QLatin1Char('/') + PhoneBookConfig);
        {
            QFile stale(config);
            QVERIFY(stale.open(QIODevice::WriteOnly));
            stale.write("old contents");
        }
        QVERIFY(startBook(programDir, PhoneBookPath, PhoneBookConfig, description, "/dev/usb/lp1"));
        QCOMPARE(recorded(sibling), (QStringList{"/dev/usb/lp1", config}));
        QFile file(config);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(file.readAll()), description);
    }

    void browserOrderAndQuoting()
    {
        QTemporaryDir root;
        const QString konqueror = root.filePath("konqueror");
        const QString firefox = root.filePath("firefox");
        writeRecorder(konqueror);
        writeRecorder(firefox);
        const QString address = "http://host/?a=1&b=2;touch " + root.filePath("INJECTED");
        StderrCapture capture;
        StartWebBrowser(address, {root.filePath("mozilla"), konqueror, firefox});
        const QByteArray log = capture.text();
        QCOMPARE(recorded(konqueror), QStringList{address});
        QVERIFY(!QFile::exists(firefox + ".args"));
        QVERIFY(!QFile::exists(root.filePath("INJECTED")));
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
        StartWebBrowser("http://192.0.2.7/", {"/nonexistent/browser"});
        QCOMPARE(shown, "Warning|Web browser not found.\nUse that address:\nhttp://192.0.2.7/");
    }

    void resolvePaths_data()
    {
        addRows({"name", "resolved"},
                {{"empty", "", "/opt/Tav/bin"},
                 {"dot slash", "./tav.xml", "/opt/Tav/bin/tav.xml"},
                 {"parent", "../share/capabilities.xml", "/opt/Tav/share/capabilities.xml"},
                 {"plain", "dependencies.xml", "/opt/Tav/bin/dependencies.xml"}});
        QTest::newRow("sibling") << WirelessSetupPath << "/opt/WirelessSetup/bin/wirelesssetup";
    }

    void resolvePaths()
    {
        const auto [name, resolved] = texts<2>();
        QCOMPARE(resolveProgramPath("/opt/Tav/bin", name), resolved);
    }
};

QTEST_MAIN(TestExternalPrograms)
#include "TestExternalPrograms.moc"
