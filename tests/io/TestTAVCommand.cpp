#include "../elements/Rows.h"
#include "io/TAVCommand.h"

#include <QTest>

// The bytes and log rendering of the two command framings.
class TestTAVCommand : public QObject
{
    Q_OBJECT

private slots:
    void framing_data()
    {
        columns<bool, uint, QByteArray, QByteArray, QString>(
            {"ids", "code", "data", "bytes", "description"});
        QTest::newRow("TAV ALL?") << false << 0u << QByteArray("ALL?")
                                  << QByteArray("\x1b#\x00\x00\x00\x04"
                                                "ALL?",
                                                10)
                                  << "\n\tstart marker: 1B23\n\tsize: 4\n\tcmd: <ALL?>";
        QTest::newRow("TAV change text shows four bytes")
            << false << 0u << QByteArray("<?xml?>")
            << QByteArray("\x1b#\x00\x00\x00\x07<?xml?>", 13)
            << "\n\tstart marker: 1B23\n\tsize: 7\n\tcmd: <<?xm>";
        QTest::newRow("IDS size query")
            << true << 0xF5000000u << QByteArray()
            << QByteArray("\x1b$\xf5\x00\x00\x00\x00\x00\x00\x00", 10)
            << "\n\tstart marker: 1B24\n\tcmd: F5000000\n\tsize: 0\n\tdata: ";
        QTest::newRow("IDS apply changes")
            << true << 0xF5020000u << QByteArray(300, 'x')
            << QByteArray("\x1b$\xf5\x02\x00\x00\x00\x00\x01\x2c", 10) + QByteArray(300, 'x')
            << "\n\tstart marker: 1B24\n\tcmd: F5020000\n\tsize: 300\n\tdata: xxxx";
    }
    void framing()
    {
        const auto [ids, code, data, bytes, description] =
            fetch<bool, uint, QByteArray, QByteArray, QString>();
        const TAVCommand command = ids ? TAVCommand::ids(code, data) : TAVCommand::tav(data);
        QCOMPARE(QByteArray(command), bytes);
        QCOMPARE(command.description(), description);
    }
};

QTEST_GUILESS_MAIN(TestTAVCommand)
#include "TestTAVCommand.moc"
