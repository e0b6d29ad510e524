#include "RequestParser.h"
#include "TAVCommand.h"

#include <QTest>

namespace {

// What the parser yields: "T:<data>" or "I:<code hex>:<data>" per request.
QStringList parse(RequestParser& parser)
{
    QStringList seen;
    PrinterRequest request;
    while (parser.next(request)) {
        if (request.framing == PrinterRequest::Tav)
            seen << "T:" + QString::fromLatin1(request.data);
        else
            seen << QStringLiteral("I:%1:").arg(request.code, 8, 16, QLatin1Char('0')) +
                        QString::fromLatin1(request.data);
    }
    return seen;
}

QByteArray tav(const char* data)
{
    return TAVCommand::tav(data);
}

} // namespace

// Cutting the host's byte stream into the commands the client frames.
class TestRequestParser : public QObject
{
    Q_OBJECT

private slots:
    void parses_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<QStringList>("requests");
        QTest::addColumn<QStringList>("reports");
        QTest::newRow("TAV") << tav("ALL?") << QStringList{"T:ALL?"} << QStringList();
        QTest::newRow("IDS with data") << QByteArray(TAVCommand::ids(0xF5020000, "<a>"))
                                       << QStringList{"I:f5020000:<a>"} << QStringList();
        QTest::newRow("two back to back")
            << tav("ALL?") + tav("DATA") << QStringList{"T:ALL?", "T:DATA"} << QStringList();
        QTest::newRow("garbage first")
            << QByteArray("xx\x1bq") + tav("DATA") << QStringList{"T:DATA"}
            << QStringList{"ignoring 4 bytes that start no request"};
        QTest::newRow("announces too much")
            << QByteArray("\x1b#\xff\xff\xff\xff", 6) + tav("ALL?") << QStringList{"T:ALL?"}
            << QStringList{"ignoring a request that announces 4294967295 bytes",
                           "ignoring 4 bytes that start no request"};
    }
    void parses()
    {
        QFETCH(QByteArray, stream);
        QFETCH(QStringList, requests);
        QFETCH(QStringList, reports);
        QStringList reported;
        RequestParser whole([&](const QString& line) { reported << line; });
        whole.feed(stream.constData(), int(stream.size()));
        QCOMPARE(parse(whole), requests);
        QCOMPARE(reported, reports);
        QVERIFY(!whole.hasPartial());
        // Byte by byte: the commands must not depend on how reads cut the stream.
        RequestParser pieces;
        QStringList seen;
        for (char byte : stream) {
            pieces.feed(&byte, 1);
            seen += parse(pieces);
        }
        QCOMPARE(seen, requests);
    }
};

QTEST_GUILESS_MAIN(TestRequestParser)
#include "TestRequestParser.moc"
