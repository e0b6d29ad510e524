#include "../app/StderrCapture.h"
#include "Log.h"
#include "SpecText.h"

#include "AboutElement.h"
#include "AboutInfo.h"
#include "ComplexElement.h"
#include "ElementType.h"
#include "SettingsParser.h"

#include <QDomDocument>
#include <QTemporaryDir>
#include <QtTest>

// The reader's rules: root choice, firmware workarounds, ignored and unsupported settings,
// the subnet-mask repair, the About rename and record, book descriptions, depth bound.
class TestSettingsParser : public QObject
{
    Q_OBJECT

private slots:
    void rootChoice_data()
    {
        QTest::addColumn<QString>("document");
        QTest::addColumn<QString>("rootId");
        const char* rows[][3] = {
            {"printer settings", "<PrinterSettingsInfo><A TYPE='INTEGER'/></PrinterSettingsInfo>",
             "PrinterSettingsInfo"},
            {"ids", "<IDSInfo><A TYPE='INTEGER'/></IDSInfo>", "IDSInfo"},
            {"both: IDSInfo wins", "<PrinterSettingsInfo/><IDSInfo><B TYPE='INTEGER'/></IDSInfo>",
             "IDSInfo"},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString("<root>%1</root>").arg(row[1]) << QString(row[2]);
    }
    void rootChoice()
    {
        QFETCH(QString, document);
        QFETCH(QString, rootId);
        SettingsParser parser;
        QVERIFY(parser.setContent(document));
        QVERIFY(parser.readPrinterSettings());
        QCOMPARE(parser.getCurrentPath(), "root/" + rootId);
        QVERIFY(parser.root());
        QCOMPARE(parser.root()->id(), rootId);
        QCOMPARE(parser.root()->typeName(), QString("stGroup"));
        QCOMPARE(parser.root()->level(), 0u);
    }
    void noRoot()
    {
        SettingsParser parser;
        QVERIFY(parser.setContent(QString("<root><Other/></root>")));
        StderrCapture capture;
        QVERIFY(!parser.readPrinterSettings());
        const QByteArray log = capture.text();
        QVERIFY(log.contains("SettingsParser::readPrinterSettings() can't go to "
                             "root/PrinterSettingsInfo"));
        QVERIFY(!parser.root());
    }
    void invalidDocument()
    {
        SettingsParser parser;
        QVERIFY(!parser.setContent(QString("<root><unclosed></root>")));
        StderrCapture capture;
        QVERIFY(!parser.readPrinterSettings());
        QVERIFY(parser.getChanges(QString()).isEmpty());
        QVERIFY(!parser.readDependencies());
        QVERIFY(parser.getPhoneBookDescription().isEmpty());
        QCOMPARE(capture.text().count("SettingsParser is invalid"), 4);
    }
    // The kind built from a TYPE keyword, with the firmware workarounds that go by id.
    void builtType_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("typeName");
        QTest::addColumn<QString>("className");
        const char* rows[][4] = {
            {"<G><A TYPE='INTEGER'/></G>", "G", "stGroup", "ComplexElement"},
            {"<G TYPE=''/>", "G", "stGroup", "ComplexElement"},
            {"<G TYPE='SUBGROUP'/>", "G", "stGroup", "ComplexElement"},
            {"<DateTime TYPE='EDITBOX' CURRENT='2007-03-05 17:09'/>", "DateTime", "stDateTIme",
             "DateTimeElement"},
            {"<TollSaveStartTime TYPE='EDITBOX'/>", "TollSaveStartTime", "stDateTIme",
             "DateTimeElement"},
            {"<TollSaveEndTime TYPE='EDITBOX'/>", "TollSaveEndTime", "stDateTIme",
             "DateTimeElement"},
            {"<Datetime TYPE='EDITBOX'/>", "Datetime", "stEdit", "EditElement"},
            {"<Name TYPE='EDITBOX'/>", "Name", "stEdit", "EditElement"},
            {"<EasyWirelessSettings TYPE='BUTTON'/>", "EasyWirelessSettings", "stWirelessSetup",
             "WirelessSetupElement"},
            {"<WirelessSetting TYPE='BUTTON'/>", "WirelessSetting", "stWirelessSetup",
             "WirelessSetupElement"},
            {"<Press TYPE='BUTTON'/>", "Press", "stButton", "ButtonElement"},
            {"<SubnetMask TYPE='IPADDRESS'/>", "SubnetMask", "stSubnetMask", "SubnetMaskElement"},
            {"<Gateway TYPE='IPADDRESS'/>", "Gateway", "stIPAddress", "IPAddressElement"},
            {"<C TYPE='CHECKBOX'/>", "C", "stCheckbox", "ListElement"},
            {"<P TYPE='PAPERSIZE'/>", "P", "stPaperSize", "PaperSizeElement"},
            {"<T TYPE='TABLE'/>", "T", "stTable", "TableElement"},
            {"<K TYPE='CARTRIDGE_CLEAN_HP_INK'/>", "K", "stInkCartridgeClean",
             "InkCartridgeCleanElement"},
            {"<A TYPE='INTEGER' SUPPORTED='false'/>", "A", "stInteger", "NumericElement"},
            {"<wifidirectsetting TYPE='INTEGER'/>", "wifidirectsetting", "stInteger",
             "NumericElement"},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[0]) << QString(row[1]) << QString(row[2])
                                  << QString(row[3]);
    }
    void builtType()
    {
        QFETCH(QString, setting);
        QFETCH(QString, id);
        QFETCH(QString, typeName);
        QFETCH(QString, className);
        const auto parser = SpecText::read(setting);
        Element* element = parser->findElement(id);
        QVERIFY(element);
        QCOMPARE(element->typeName(), typeName);
        QCOMPARE(QString(element->metaObject()->className()), className);
        QCOMPARE(element->parentElement(), parser->root());
        QCOMPARE(element->level(), 1u);
    }
    void skippedNodes_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("logLine");
        const char* rows[][3] = {
            {"<A TYPE='WHATEVER'><Inner TYPE='INTEGER'/></A>", "A",
             "Warning: skipping element with unexpected TYPE='WHATEVER'"},
            {"<A TYPE='integer'/>", "A",
             "Warning: skipping element with unexpected TYPE='integer'"},
            {"<A TYPE='MAINTENANCE'/>", "A",
             "Warning: skipping element with unexpected TYPE='MAINTENANCE'"},
            {"<A TYPE='UNKNOWN'/>", "A",
             "Warning: skipping element with unexpected TYPE='UNKNOWN'"},
            {"<WIFIDirectSetting TYPE='INTEGER'/>", "WIFIDirectSetting",
             "Element <WIFIDirectSetting> is ignored"},
            {"<WiFiDirectSetting/>", "WiFiDirectSetting", "Element <WiFiDirectSetting> is ignored"},
            {"<RestoreNetwork TYPE='BUTTON'/>", "RestoreNetwork",
             "Element <RestoreNetwork> is ignored"},
            {"<A SUPPORTED='FALSE'><Inner TYPE='INTEGER'/></A>", "A", ""},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[0]) << QString(row[1]) << QString(row[2]);
    }
    void skippedNodes()
    {
        QFETCH(QString, setting);
        QFETCH(QString, id);
        QFETCH(QString, logLine);
        StderrCapture capture;
        const auto parser = SpecText::read(setting + QString("<Kept TYPE='INTEGER' CURRENT='1'/>"));
        const QByteArray log = capture.text();
        QVERIFY(!parser->findElement(id));
        QVERIFY(!parser->findElement("Inner"));
        QVERIFY(parser->findElement("Kept"));
        auto* root = qobject_cast<ComplexElement*>(parser->root());
        QCOMPARE(root->elements().size(), 1);
        if (!logLine.isEmpty())
            QVERIFY2(log.contains(logLine.toUtf8()), log.constData());
    }
    void workaroundLoggedOnce()
    {
        logLevel = 10;
        StderrCapture capture;
        const auto parser = SpecText::read("<DateTime TYPE=\"EDITBOX\"/><W TYPE=\"EDITBOX\"/>"
                                           "<EasyWirelessSettings TYPE=\"BUTTON\"/>");
        const QByteArray log = capture.text();
        logLevel = kDefaultLogLevel;
        QCOMPARE(log.count("workaround for firmware DateTime defect (tagName='DateTime')"), 1);
        QCOMPARE(log.count("workaround for firmware DateTime defect"), 1);
        QCOMPARE(log.count("workaround for firmware WirelessSetup defect "
                           "(tagName='EasyWirelessSettings')"),
                 1);
    }
    void textsFromString_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("string");
        QTest::addColumn<QString>("title");
        QTest::newRow("no STRING") << "<A TYPE='INTEGER'/>" << QString("A") << QString("A");
        QTest::newRow("empty STRING") << "<A TYPE='INTEGER' STRING=''/>" << QString("") << "A";
        QTest::newRow("STRING") << "<A TYPE='INTEGER' STRING='Copies'/>" << QString("Copies")
                                << "Copies";
    }
    void textsFromString()
    {
        QFETCH(QString, setting);
        QFETCH(QString, string);
        QFETCH(QString, title);
        const auto parser = SpecText::read(setting);
        Element* element = parser->findElement("A");
        QVERIFY(element);
        QCOMPARE(element->string(), string);
        QCOMPARE(element->title(), title);
        QCOMPARE(element->description(), title);
    }
    void aboutRenamedAndFound()
    {
        const auto parser =
            SpecText::read("<Info TYPE=\"ABOUT\" STRING=\"About\"><About>Text</About>"
                           "</Info>");
        QVERIFY(!parser->findElement("Info"));
        auto* about = qobject_cast<AboutElement*>(parser->findElement("AboutElement"));
        QVERIFY(about);
        QCOMPARE(about->typeName(), QString("stAbout"));
        QCOMPARE(about->aboutText(), QString("Text"));
        QCOMPARE(
            parser->find("root/PrinterSettingsInfo/AboutElement").toElement().attribute("STRING"),
            QString("About"));
        QVERIFY(parser->find("root/PrinterSettingsInfo/Info").isNull());
    }
    void aboutRecordHandedOver()
    {
        SettingsParser parser;
        parser.setAboutInfo(AboutInfo("LX-500", "Tavolor", Version(1, 2, 3), "(c) us", QPixmap()));
        parser.setContent(SpecText::wrap("<Info TYPE=\"ABOUT\"/>"));
        QVERIFY(parser.readPrinterSettings());
        auto* about = qobject_cast<AboutElement*>(parser.findElement("AboutElement"));
        QVERIFY(about && about->aboutInfo());
        QCOMPARE(about->aboutInfo()->model, QString("LX-500"));
        QCOMPARE(about->aboutInfo()->version.toString(), QString("1.02.03"));
        QVERIFY(about->aboutInfo() != parser.aboutInfo());
        QVERIFY(about->aboutInfo()->toString().contains("\tcopyrights: <(c) us>"));
    }
    void aboutRecordWithoutAboutElement()
    {
        SettingsParser withRecord;
        withRecord.setAboutInfo(AboutInfo());
        withRecord.setContent(SpecText::wrap("<A TYPE=\"INTEGER\"/>"));
        SettingsParser withoutRecord;
        withoutRecord.setContent(SpecText::wrap("<Info TYPE=\"ABOUT\"/>"));

        StderrCapture capture;
        QVERIFY(withRecord.readPrinterSettings());
        QVERIFY(withoutRecord.readPrinterSettings());
        const QByteArray log = capture.text();
        QCOMPARE(log.count("'About' element is unavailable"), 1);
        auto* about = qobject_cast<AboutElement*>(withoutRecord.findElement("AboutElement"));
        QVERIFY(about && !about->aboutInfo());
    }
    void bookDescriptions()
    {
        const auto parser = SpecText::read(
            "<Books><Phone TYPE=\"PHONEBOOK\" MAX=\"200\"><Entry/></Phone>"
            "<Mail TYPE=\"EMAILBOOK\"/></Books>",
            "PrinterSettingsInfo", "<Other><Addr TYPE=\"USERBASEDADDRESSBOOK\"/></Other>");
        QDomDocument phone;
        QVERIFY(phone.setContent(parser->getPhoneBookDescription()));
        QCOMPARE(phone.documentElement().tagName(), QString("Phone"));
        QCOMPARE(phone.documentElement().attribute("MAX"), QString("200"));
        QCOMPARE(phone.documentElement().firstChildElement().tagName(), QString("Entry"));
        QVERIFY(parser->getEmailBookDescription().contains("<Mail TYPE=\"EMAILBOOK\"/>"));
        // Only the current root path is searched.
        QVERIFY(parser->getAddressBookDescription().isEmpty());
    }
    void deepTreeIsBounded()
    {
        const int depth = 4000;
        QString text;
        for (int i = 0; i < depth; ++i)
            text += QString("<G%1>").arg(i);
        text += QString("<Leaf TYPE=\"INTEGER\"/>");
        for (int i = depth - 1; i >= 0; --i)
            text += QString("</G%1>").arg(i);
        StderrCapture capture;
        const auto parser = SpecText::read(text);
        const QByteArray log = capture.text();
        QVERIFY(parser->root());
        const QString cut = QString("G%1").arg(SettingsParser::kMaxTreeDepth - 1);
        QVERIFY(parser->findElement(QString("G%1").arg(SettingsParser::kMaxTreeDepth - 2)));
        QVERIFY(!parser->findElement(cut));
        QVERIFY(!parser->findElement("Leaf"));
        QVERIFY(log.contains(
            QString("Warning: element <%1> nested deeper than 256 levels").arg(cut).toUtf8()));
    }
    void rereadReplacesTree()
    {
        SettingsParser parser;
        parser.setContent(SpecText::wrap("<A TYPE=\"INTEGER\"/>", "IDSInfo"));
        QVERIFY(parser.readPrinterSettings());
        QVERIFY(parser.isIdsRoot());
        parser.setContent(SpecText::wrap("<B TYPE=\"INTEGER\"/>"));
        QVERIFY(parser.readPrinterSettings());
        QVERIFY(!parser.isIdsRoot());
        QVERIFY(!parser.findElement("A"));
        QVERIFY(parser.findElement("B"));
    }
};

QTEST_MAIN(TestSettingsParser)
#include "TestSettingsParser.moc"
