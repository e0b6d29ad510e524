#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// The tree printer, run as a program.
class TestTavDump : public QObject
{
    Q_OBJECT

private:
    static int run(const QStringList& arguments, QByteArray* out, QByteArray* err);
    QTemporaryDir dir;

private slots:
    void printsTree()
    {
        const QString name = dir.filePath("spec.xml");
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<root><PrinterSettingsInfo><General>"
                   "<Copies TYPE=\"INTEGER\" CURRENT=\"120\" MAX=\"99\" FACTORY=\"1\"/>"
                   "<Name TYPE=\"EDITBOX\" CURRENT=\"a_b\"/><Go TYPE=\"BUTTON\"/></General>"
                   "</PrinterSettingsInfo></root>");
        file.close();
        QByteArray out, err;
        QCOMPARE(run({name}, &out, &err), 0);
        const QList<QByteArray> lines = out.trimmed().split('\n');
        QCOMPARE(lines.size(), 5);
        QCOMPARE(lines.at(0),
                 QByteArray("0 PrinterSettingsInfo stGroup current=- initial=- factory=- "
                            "valid=yes"));
        QCOMPARE(lines.at(1),
                 QByteArray("  1 General stGroup current=- initial=- factory=- valid=yes"));
        QCOMPARE(lines.at(2), QByteArray("    2 Copies stInteger current=\"120\" initial=\"120\" "
                                         "factory=\"1\" valid=yes"));
        QCOMPARE(lines.at(3), QByteArray("    2 Name stEdit current=\"\" initial=\"a_b\" factory=- "
                                         "valid=yes"));
        QCOMPARE(lines.at(4),
                 QByteArray("    2 Go stButton current=- initial=- factory=- valid=yes"));
    }
    void failures_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("missing file") << QByteArray() << QByteArray("cannot read");
        QTest::newRow("not XML") << QByteArray("<root>")
                                 << QByteArray("not a readable XML document");
        QTest::newRow("no settings root")
            << QByteArray("<root><X/></root>") << QByteArray("holds no settings");
    }
    void failures()
    {
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, message);
        const QString name = dir.filePath(QTest::currentDataTag());
        if (!content.isNull()) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
        QByteArray out, err;
        QCOMPARE(run({name}, &out, &err), 1);
        QVERIFY2(err.contains(message), err.constData());
        QVERIFY(out.isEmpty());
        QCOMPARE(run({}, &out, &err), 2);
    }
};

int TestTavDump::run(const QStringList& arguments, QByteArray* out, QByteArray* err)
{
    QProcess process;
    process.start(QStringLiteral(TAV_BIN_DIR "/tavdump"), arguments);
    if (!process.waitForFinished(60000))
        return -1;
    *out = process.readAllStandardOutput();
    *err = process.readAllStandardError();
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
}

QTEST_MAIN(TestTavDump)
#include "TestTavDump.moc"
