#include "../elements/Rows.h"
#include "TavProcess.h"
#include "app/QtSingleApplication.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

#include <unistd.h>

class TestSingleInstance : public QObject
{
    Q_OBJECT

    static QtSingleApplication* app() { return static_cast<QtSingleApplication*>(qApp); }

    static QByteArray probe(const QString& id, const QByteArray& message)
    {
        QProcess process;
        process.start(QStringLiteral(TAV_BIN_DIR "/../tests/SingleInstanceProbe"),
                      {id, QString::fromUtf8(message)});
        // Keep our own event loop turning: the probe's property write must reach us.
        while (!process.waitForFinished(20))
            QCoreApplication::processEvents();
        return process.readAllStandardOutput().trimmed();
    }

private slots:
    void selectionName_data()
    {
        columns<QByteArray, QString, QByteArray>({"user", "id", "name"});
        QTest::newRow("plain") << QByteArray("anna") << QStringLiteral("/dev/usb/lp0 Laser MFP")
                               << QByteArray("anna/dev/usb/lp0 Laser MFP");
        QTest::newRow("no user") << QByteArray() << QStringLiteral("lp0 M") << QByteArray("lp0 M");
        QTest::newRow("non-ASCII, one dash per byte")
            << QByteArray("anna") << QStringLiteral("lp0 Drucker \u00e9")
            << QByteArray("annalp0 Drucker --");
        QTest::newRow("tab and newline kept")
            << QByteArray("u") << QStringLiteral("a\tb\nc") << QByteArray("ua\tb\nc");
        QTest::newRow("control characters")
            << QByteArray("u") << QStringLiteral("a\rb\x7f") << QByteArray("ua-b-");
    }

    void selectionName()
    {
        const auto [user, id, name] = fetch<QByteArray, QString, QByteArray>();
        QCOMPARE(QtSingleApplication::selectionName(user, id), name);
    }

    void noInstanceRunsYet()
    {
        QVERIFY(!app()->isRunning());
        QCOMPARE(probe(app()->id(), "hello"), QByteArray("running=0 sent=0"));
    }

    // The message hands the printer to the running instance, which brings its window back.
    void secondInstanceHandsOver()
    {
        app()->initialize(true);
        QVERIFY(app()->isRunning());
        QWidget window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.showMinimized();
        QSignalSpy received(app(), &QtSingleApplication::messageReceived);
        QCOMPARE(probe(app()->id(), "lp0 Laser MFP"), QByteArray("running=1 sent=1"));
        QTRY_COMPARE(received.count(), 1);
        QCOMPARE(received.at(0).at(0).toString(), QStringLiteral("lp0 Laser MFP"));
        QTRY_VERIFY(!window.isMinimized());
        // Another identifier runs alone.
        QCOMPARE(probe(app()->id() + " other", "x"), QByteArray("running=0 sent=0"));
    }

    void longMessageIsCut()
    {
        QSignalSpy received(app(), &QtSingleApplication::messageReceived);
        const QByteArray longText(5000, 'm');
        QCOMPARE(probe(app()->id(), longText), QByteArray("running=1 sent=1"));
        QTRY_COMPARE(received.count(), 1);
        QCOMPARE(received.at(0).at(0).toString().size(), QtSingleApplication::kMaxMessageBytes);
    }

    // The identifier has the shape "<devPath> <devName>" that tav forms. The same printer
    // started twice is left to the first instance (TestEndToEnd); another printer is no
    // reason to step aside: that program goes on to the device.
    void otherPrinterStartsItsOwn()
    {
        const QStringList device = app()->id().split(QLatin1Char(' '));
        const TavProcess::Run other =
            TavProcess::run({device.at(0), device.at(1) + "-other"}, "Qt version");
        QCOMPARE(other.status, TavProcess::Run::kStopped);
    }
};

int main(int argc, char** argv)
{
    QtSingleApplication app(QStringLiteral("tav-test %1").arg(getpid()), argc, argv);
    TestSingleInstance test;
    return QTest::qExec(&test, argc, argv);
}

#include "TestSingleInstance.moc"
