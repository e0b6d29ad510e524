#include "../app/StderrCapture.h"
#include "../elements/Rows.h"
#include "SpecText.h"
#include "app/Log.h"

#include "elements/AboutElement.h"
#include "elements/AboutInfo.h"
#include "elements/ComplexElement.h"

#include <QDomDocument>
#include <QtTest>

// The reader's rules: root choice, firmware workarounds, ignored and unsupported settings,
// the subnet-mask repair, the About rename and record, book descriptions, depth bound.
class TestSettingsParser : public QObject
{
    Q_OBJECT

private slots:
    void rootChoice_data()
    {
        addRows({"document", "rootId"},
                {{"printer settings",
                  "<PrinterSettingsInfo><A TYPE='INTEGER'/>"
                  "</PrinterSettingsInfo>",
                  "PrinterSettingsInfo"},
                 {"ids", "<IDSInfo><A TYPE='INTEGER'/></IDSInfo>", "IDSInfo"},
                 {"both: IDSInfo wins",
                  "<PrinterSettingsInfo/><IDSInfo><B TYPE='INTEGER'/></IDSInfo>", "IDSInfo"}});
    }
    void rootChoice()
    {
        QFETCH(QString, document);
        QFETCH(QString, rootId);
        SettingsParser parser;
        QVERIFY(parser.setContent("<root>" + document + "</root>"));
        QVERIFY(parser.readPrinterSettings() && parser.root());
        QCOMPARE(QString("%1 %2 %3 %4")
                     .arg(parser.getCurrentPath(), parser.root()->id(), parser.root()->typeName())
                     .arg(parser.root()->level()),
                 QString("root/%1 %1 stGroup 0").arg(rootId));
    }
    void noRootOrInvalidDocument()
    {
        SettingsParser parser;
        QVERIFY(parser.setContent(QString("<root><Other/></root>")));
        StderrCapture capture;
        QVERIFY(!parser.readPrinterSettings());
        QVERIFY(!parser.root());
        QVERIFY(!parser.setContent(QString("<root><unclosed></root>")));
        QVERIFY(!parser.readPrinterSettings());
        QVERIFY(parser.getChanges(QString()).isEmpty());
        QVERIFY(!parser.readDependencies());
        QVERIFY(parser.getPhoneBookDescription().isEmpty());
        const QByteArray log = capture.text();
        QVERIFY(log.contains("readPrinterSettings() can't go to root/PrinterSettingsInfo"));
        QCOMPARE(log.count("SettingsParser is invalid"), 4);
    }
    // The kind built from a TYPE keyword, with the firmware workarounds that go by id.
    void builtType_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("expected"); // kind, class
        const char* rows[][2] = {
            {"<G><A TYPE='INTEGER'/></G>", "stGroup ComplexElement"},
            {"<G TYPE=''/>", "stGroup ComplexElement"},
            {"<G TYPE='SUBGROUP'/>", "stGroup ComplexElement"},
            {"<DateTime TYPE='EDITBOX' CURRENT='2007-03-05 17:09'/>", "stDateTIme DateTimeElement"},
            {"<TollSaveStartTime TYPE='EDITBOX'/>", "stDateTIme DateTimeElement"},
            {"<TollSaveEndTime TYPE='EDITBOX'/>", "stDateTIme DateTimeElement"},
            {"<Datetime TYPE='EDITBOX'/>", "stEdit EditElement"},
            {"<Name TYPE='EDITBOX'/>", "stEdit EditElement"},
            {"<EasyWirelessSettings TYPE='BUTTON'/>", "stWirelessSetup WirelessSetupElement"},
            {"<WirelessSetting TYPE='BUTTON'/>", "stWirelessSetup WirelessSetupElement"},
            {"<Press TYPE='BUTTON'/>", "stButton ButtonElement"},
            {"<SubnetMask TYPE='IPADDRESS'/>", "stSubnetMask SubnetMaskElement"},
            {"<Gateway TYPE='IPADDRESS'/>", "stIPAddress IPAddressElement"},
            {"<C TYPE='CHECKBOX'/>", "stCheckbox ListElement"},
            {"<P TYPE='PAPERSIZE'/>", "stPaperSize PaperSizeElement"},
            {"<T TYPE='TABLE'/>", "stTable TableElement"},
            {"<K TYPE='CARTRIDGE_CLEAN_HP_INK'/>", "stInkCartridgeClean InkCartridgeCleanElement"},
            {"<A TYPE='INTEGER' SUPPORTED='false'/>", "stInteger NumericElement"},
            {"<wifidirectsetting TYPE='INTEGER'/>", "stInteger NumericElement"},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[0]) << QString(row[1]);
    }
    void builtType()
    {
        QFETCH(QString, setting);
        QFETCH(QString, expected);
        const auto parser = SpecText::read(setting);
        // The id is the setting's tag.
        Element* element = parser->findElement(setting.section(QRegularExpression("[< >]"), 1, 1));
        QVERIFY(element);
        QCOMPARE(element->typeName() + ' ' + element->metaObject()->className(), expected);
        QCOMPARE(element->parentElement(), parser->root());
        QCOMPARE(element->level(), 1u);
    }
    void skippedNodes_data()
    {
        const char* type = "Warning: skipping element with unexpected TYPE=";
        addRows({"setting", "id", "logLine"},
                {{"unknown TYPE", "<A TYPE='WHATEVER'><Inner TYPE='INTEGER'/></A>", "A", type},
                 {"lower-case TYPE", "<A TYPE='integer'/>", "A", type},
                 {"MAINTENANCE", "<A TYPE='MAINTENANCE'/>", "A", type},
                 {"UNKNOWN", "<A TYPE='UNKNOWN'/>", "A", type},
                 {"WIFIDirectSetting", "<WIFIDirectSetting TYPE='INTEGER'/>", "WIFIDirectSetting",
                  "Element <WIFIDirectSetting> is ignored"},
                 {"WiFiDirectSetting", "<WiFiDirectSetting/>", "WiFiDirectSetting",
                  "Element <WiFiDirectSetting> is ignored"},
                 {"RestoreNetwork", "<RestoreNetwork TYPE='BUTTON'/>", "RestoreNetwork",
                  "Element <RestoreNetwork> is ignored"},
                 {"unsupported", "<A SUPPORTED='FALSE'><Inner TYPE='INTEGER'/></A>", "A", ""}});
    }
    void skippedNodes()
    {
        QFETCH(QString, setting);
        QFETCH(QString, id);
        QFETCH(QString, logLine);
        StderrCapture capture;
        const auto parser = SpecText::read(setting + QString("<Kept TYPE='INTEGER' CURRENT='1'/>"));
        const QByteArray log = capture.text();
        QVERIFY(!parser->findElement(id) && !parser->findElement("Inner"));
        QVERIFY(parser->findElement("Kept"));
        QCOMPARE(qobject_cast<ComplexElement*>(parser->root())->elements().size(), 1);
        if (logLine.startsWith("Warning"))
            logLine += setting.section(QRegularExpression("TYPE=|/?>"), 1, 1);
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
        QCOMPARE(QString("%1 %2 %3")
                     .arg(log.count("workaround for firmware DateTime defect (tagName='DateTime')"))
                     .arg(log.count("workaround for firmware DateTime defect"))
                     .arg(log.count("workaround for firmware WirelessSetup defect "
                                    "(tagName='EasyWirelessSettings')")),
                 QString("1 1 1"));
    }
    void textsFromString_data()
    {
        addRows({"setting", "expected"}, // string|title|description
                {{"no STRING", "<A TYPE='INTEGER'/>", "A|A|A"},
                 {"empty STRING", "<A TYPE='INTEGER' STRING=''/>", "|A|A"},
                 {"STRING", "<A TYPE='INTEGER' STRING='Copies'/>", "Copies|Copies|Copies"}});
    }
    void textsFromString()
    {
        QFETCH(QString, setting);
        QFETCH(QString, expected);
        const auto parser = SpecText::read(setting);
        Element* e = parser->findElement("A");
        QVERIFY(e);
        QCOMPARE(QStringList({e->string(), e->title(), e->description()}).join('|'), expected);
    }
    void aboutRenamedAndFound()
    {
        const auto parser =
            SpecText::read("<Info TYPE=\"ABOUT\" STRING=\"About\"><About>Text</About></Info>");
        QVERIFY(!parser->findElement("Info"));
        auto* about = qobject_cast<AboutElement*>(parser->findElement("AboutElement"));
        QVERIFY(about);
        QCOMPARE(about->typeName() + ' ' + about->aboutText(), QString("stAbout Text"));
        const QString path = "root/PrinterSettingsInfo/";
        QCOMPARE(parser->find(path + "AboutElement").toElement().attribute("STRING"), "About");
        QVERIFY(parser->find(path + "Info").isNull());
    }
    void aboutRecord()
    {
        SettingsParser parser;
        parser.setAboutInfo(AboutInfo("LX-500", "Tavolor", Version(1, 2, 3), "(c) us", QPixmap()));
        parser.setContent(SpecText::wrap("<Info TYPE=\"ABOUT\"/>"));
        QVERIFY(parser.readPrinterSettings());
        auto* about = qobject_cast<AboutElement*>(parser.findElement("AboutElement"));
        QVERIFY(about && about->aboutInfo() && about->aboutInfo() != parser.aboutInfo());
        QCOMPARE(about->aboutInfo()->model + ' ' + about->aboutInfo()->version.toString(),
                 QString("LX-500 1.02.03"));
        QVERIFY(about->aboutInfo()->toString().contains("\tcopyrights: <(c) us>"));
        // A record without an About setting is reported; an About setting without one has none.
        SettingsParser withRecord;
        withRecord.setAboutInfo(AboutInfo());
        withRecord.setContent(SpecText::wrap("<A TYPE=\"INTEGER\"/>"));
        SettingsParser withoutRecord;
        withoutRecord.setContent(SpecText::wrap("<Info TYPE=\"ABOUT\"/>"));
        StderrCapture capture;
        QVERIFY(withRecord.readPrinterSettings() && withoutRecord.readPrinterSettings());
        QCOMPARE(capture.text().count("'About' element is unavailable"), 1);
        about = qobject_cast<AboutElement*>(withoutRecord.findElement("AboutElement"));
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
        const QDomElement top = phone.documentElement();
        QCOMPARE(top.tagName() + top.attribute("MAX") + top.firstChildElement().tagName(),
                 QString("Phone200Entry"));
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
        QVERIFY(!parser->findElement(cut) && !parser->findElement("Leaf"));
        QVERIFY(log.contains(
            QString("Warning: element <%1> nested deeper than 256 levels").arg(cut).toUtf8()));
    }
    void rereadReplacesTree()
    {
        SettingsParser parser;
        parser.setContent(SpecText::wrap("<A TYPE=\"INTEGER\"/>", "IDSInfo"));
        QVERIFY(parser.readPrinterSettings() && parser.isIdsRoot());
        parser.setContent(SpecText::wrap("<B TYPE=\"INTEGER\"/>"));
        QVERIFY(parser.readPrinterSettings() && !parser.isIdsRoot());
        QVERIFY(!parser.findElement("A") && parser.findElement("B"));
    }
};

QTEST_MAIN(TestSettingsParser)
#include "TestSettingsParser.moc"
