#include "../elements/Rows.h"

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
        QCOMPARE(
            out,
            QByteArray(
                "0 PrinterSettingsInfo stGroup current=- initial=- factory=- valid=yes\n"
                "  1 General stGroup current=- initial=- factory=- valid=yes\n"
                "    2 Copies stInteger current=\"120\" initial=\"120\" factory=\"1\" valid=yes\n"
                "    2 Name stEdit current=\"\" initial=\"a_b\" factory=- valid=yes\n"
                "    2 Go stButton current=- initial=- factory=- valid=yes\n"));
    }
    void failures_data()
    {
        addRows({"content", "message"},
                {{"missing file", "-", "cannot read"},
                 {"not XML", "<root>", "not a readable XML document"},
                 {"no settings root", "<root><X/></root>", "holds no settings"}});
    }
    void failures()
    {
        QFETCH(QString, content);
        QFETCH(QString, message);
        const QString name = dir.filePath(QTest::currentDataTag());
        QFile file(name);
        QVERIFY(content == "-" ||
                (file.open(QIODevice::WriteOnly) && file.write(content.toUtf8())));
        file.close();
        QByteArray out, err;
        QCOMPARE(run({name}, &out, &err), 1);
        QVERIFY2(err.contains(message.toUtf8()), err.constData());
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
