#include "../elements/Rows.h"
#include "../io/LogCapture.h"
#include "xml/DomParser.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray nested(int depth)
{
    QByteArray text;
    text.reserve(depth * 8);
    for (int i = 0; i < depth; ++i)
        text += "<a>";
    for (int i = 0; i < depth; ++i)
        text += "</a>";
    return text;
}

const char kDevices[] = "<root><!-- models --><Devices>"
                        "<Model NAME=\"first\" NETWORK=\"false\"><Note>one</Note></Model>"
                        "<Model NAME=\"second\"/>"
                        "</Devices><devices NAME=\"lower\"/></root>";

} // namespace

class TestDomParser : public QObject
{
    Q_OBJECT

private slots:
    void find_data()
    {
        addRows({"path", "name"}, {{"empty path is the document", "", "#document"},
                                   {"only slashes", "//", "#document"},
                                   {"root", "root", "root"},
                                   {"two steps", "root/Devices", "Devices"},
                                   {"empty parts dropped", "/root//Devices/", "Devices"},
                                   {"first match wins", "root/Devices/Model/Note", "Note"},
                                   {"case-sensitive", "root/DEVICES", ""},
                                   {"missing step", "root/Nothing/Devices", ""},
                                   {"comment is not a step", "root/#comment", ""}});
    }
    void find()
    {
        QFETCH(QString, path);
        QFETCH(QString, name);
        DomParser parser;
        QVERIFY(parser.setContent(QString::fromLatin1(kDevices)));
        const QDomNode node = parser.find(path);
        QCOMPARE(node.isNull() ? QString() : node.nodeName(), name);
    }

    void textHelpers()
    {
        DomParser parser;
        QVERIFY(parser.setContent(QString::fromLatin1(kDevices)));
        const QDomNode model = parser.find(QString("root/Devices/Model"));
        const QDomNode comment = parser.find(QString("root")).firstChild();
        QVERIFY(comment.isComment());
        QCOMPARE(
            QStringList({DomParser::attribute(model, "NETWORK"), DomParser::attribute(model, "IDS"),
                         DomParser::childText(model, "Note"), DomParser::text(model),
                         DomParser::text(comment)}),
            QStringList({"false", "", "one", "one", " models "}));
        QVERIFY(DomParser::childText(model, QString("Missing")).isNull());
    }

    void create()
    {
        DomParser parser;
        QVERIFY(parser.setContent(QString::fromLatin1(kDevices)));
        const QDomNode existing = parser.find(QString("root/Devices"));
        QCOMPARE(parser.create(QString("root/Devices")), existing);
        QCOMPARE(parser.document().childNodes().count(), 1);
        const QDomNode made = parser.create(QString("root/Dependencies"));
        QCOMPARE(made.nodeName(), QString("Dependencies"));
        // A second "root" is built even though one exists; the first one is untouched, so a
        // later lookup by path still stops at the first "root".
        QCOMPARE(made.parentNode().nodeName(), QString("root"));
        QCOMPARE(made.parentNode().parentNode(), QDomNode(parser.document()));
        QVERIFY(made.parentNode() != parser.find(QString("root")));
        QVERIFY(parser.find(QString("root/Dependencies")).isNull());
        DomParser empty;
        QCOMPARE(empty.find(QString("root/IDSInfo")), QDomNode());
        const QDomNode first = empty.create(QString("root/IDSInfo"));
        QCOMPARE(empty.find(QString("root/IDSInfo")), first);
    }

    void validityAndOpen()
    {
        DomParser parser;
        QVERIFY(!parser.isValid());
        QVERIFY(!parser.setContent(QString("<root><open></root>")) && !parser.isValid());
        QVERIFY(parser.setContent(QString("<root/>")) && parser.isValid());
        QVERIFY(!parser.setContent(QByteArray("<root")) && !parser.isValid());
        QVERIFY(!parser.open(nullptr));
        QByteArray bytes(kDevices);
        QBuffer buffer(&bytes);
        QVERIFY(parser.open(&buffer) && !buffer.isOpen());
        QVERIFY(!parser.find(QString("root/Devices")).isNull());
        // A file that cannot be opened leaves the earlier content and its validity alone.
        QFile missing(QString("/nonexistent/capabilities.xml"));
        QVERIFY(!parser.open(&missing) && parser.isValid());
    }

    void saveRoundTrip()
    {
        QTemporaryDir dir;
        DomParser parser;
        QVERIFY(parser.setContent(QString::fromLatin1(kDevices)));
        const QString path = dir.filePath(QString("saved.xml"));
        parser.save(path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        QVERIFY2(text.contains("\n    <Devices>"), text.constData());
        file.close();
        DomParser again;
        QVERIFY(again.open(&file));
        QCOMPARE(again.document().toString(), parser.document().toString());
        parser.save(QString("/nonexistent/dir/file.xml")); // ignored, no crash
    }

    void hostile_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("not xml") << QByteArray("hello printer");
        QTest::newRow("truncated") << QByteArray(kDevices).left(40);
        QTest::newRow("mismatched tags") << QByteArray("<root><a></b></root>");
        QTest::newRow("two documents") << QByteArray("<a/><b/>");
        QTest::newRow("nul bytes") << QByteArray("<root>\0\0\0</root>", 16);
        QTest::newRow("entity bomb")
            << QByteArray("<?xml version=\"1.0\"?><!DOCTYPE r [<!ENTITY a \"aaaaaaaaaa\">"
                          "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
                          "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">"
                          "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">"
                          "<!ENTITY e \"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\">]><r>&e;&e;&e;</r>");
        QTest::newRow("external entity")
            << QByteArray("<!DOCTYPE r [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><r>&x;</r>");
        QTest::newRow("100000 levels") << nested(100000);
        QTest::newRow("one level too deep") << nested(DomParser::kMaxNestingDepth + 1);
        QTest::newRow("unclosed deep") << QByteArray(200000, '<');
    }

    void hostile()
    {
        QFETCH(QByteArray, bytes);
        DomParser parser;
        QVERIFY(parser.setContent(QString("<ok/>")));
        QVERIFY(!parser.setContent(bytes) && !parser.isValid());
        // The parser stays usable.
        QVERIFY(parser.setContent(QByteArray("<root><Devices/></root>")));
        QVERIFY(!parser.find(QString("root/Devices")).isNull());
    }

    // Bytes that are not valid in the declared (or default) encoding are read as Latin-1, and
    // that is logged once.
    void foreignBytesLoad_data()
    {
        columns<QByteArray, QString, int>({"bytes", "value", "fallbacks"});
        QTest::newRow("undeclared, Latin-1 bytes")
            << QByteArray("<?xml version=\"1.0\"?><r a=\"Caf\xe9 \xe9t\xe9\"/>")
            << QString::fromUtf8("Café été") << 1;
        QTest::newRow("declared UTF-8, invalid bytes")
            << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?><r a=\"\xff\xfe\xc3\"/>")
            << QString::fromUtf8("ÿþÃ") << 1;
        QTest::newRow("valid UTF-8")
            << QByteArray("<r a=\"Caf\xc3\xa9\"/>") << QString::fromUtf8("Café") << 0;
        QTest::newRow("declared Latin-1")
            << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?><r a=\"Caf\xe9\"/>")
            << QString::fromUtf8("Café") << 0;
    }
    void foreignBytesLoad()
    {
        const auto [bytes, value, fallbacks] = fetch<QByteArray, QString, int>();
        LogCapture log(9);
        DomParser parser;
        QVERIFY(parser.setContent(bytes));
        QCOMPARE(parser.document().documentElement().attribute("a"), value);
        QCOMPARE(log.text().count("read as Latin-1"), fallbacks);
    }

    void oversized()
    {
        const QByteArray big = "<root>" + QByteArray(DomParser::kMaxDocumentBytes, ' ') + "</root>";
        DomParser parser;
        QVERIFY(!parser.setContent(big));
        QVERIFY(!DomParser::screen(big).isEmpty());
    }

    void deepestAcceptedDocumentIsSafe()
    {
        // The limit must leave the DOM's recursive save and teardown well inside the stack.
        QTemporaryDir dir;
        {
            DomParser parser;
            QVERIFY(parser.setContent(nested(DomParser::kMaxNestingDepth)));
            parser.save(dir.filePath(QString("deep.xml")));
        }
        QVERIFY(QFileInfo(dir.filePath(QString("deep.xml"))).size() >
                4 * DomParser::kMaxNestingDepth);
    }
};

QTEST_GUILESS_MAIN(TestDomParser)
#include "TestDomParser.moc"
