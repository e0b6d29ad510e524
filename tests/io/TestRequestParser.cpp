#include "RequestParser.h"

#include <QTest>

// Cutting the host's byte stream into framed commands.
class TestRequestParser : public QObject
{
    Q_OBJECT

private slots:
    void parses_data();
    void parses();
};

namespace {

QByteArray tav(const QByteArray& data)
{
    QByteArray frame("\x1b#", 2);
    const uint32_t n = uint32_t(data.size());
    frame += char(n >> 24);
    frame += char(n >> 16);
    frame += char(n >> 8);
    frame += char(n);
    return frame + data;
}

} // namespace

void TestRequestParser::parses_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QStringList>("requests"); // "T:<data>" or "I:<code hex>:<data>"
    QTest::addColumn<QStringList>("reports");

    QTest::newRow("TAV") << tav("ALL?") << QStringList{"T:ALL?"} << QStringList();
    QTest::newRow("IDS with data") << QByteArray("\x1b$\xf5\x02\x00\x00\x00\x00\x00\x03<a>", 13)
                                   << QStringList{"I:f5020000:<a>"} << QStringList();
    QTest::newRow("two back to back")
        << tav("ALL?") + tav("DATA") << QStringList{"T:ALL?", "T:DATA"} << QStringList();
    QTest::newRow("garbage first") << QByteArray("xx\x1bq") + tav("DATA") << QStringList{"T:DATA"}
                                   << QStringList{"ignoring 4 bytes that start no request"};
    QTest::newRow("announces too much")
        << QByteArray("\x1b#\xff\xff\xff\xff", 6) + tav("ALL?") << QStringList{"T:ALL?"}
        << QStringList{"ignoring a request that announces 4294967295 bytes",
                       "ignoring 4 bytes that start no request"};
}

namespace {

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

} // namespace

void TestRequestParser::parses()
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

QTEST_GUILESS_MAIN(TestRequestParser)
#include "TestRequestParser.moc"
