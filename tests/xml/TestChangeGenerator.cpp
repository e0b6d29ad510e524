#include "SpecText.h"

#include "ChangeGenerator.h"
#include "DateTimeElement.h"
#include "DialEditElement.h"
#include "EditElement.h"
#include "IPAddressElement.h"
#include "ListElement.h"
#include "NumericElement.h"
#include "Parameter.h"
#include "SettingsParser.h"
#include "SubnetMaskElement.h"

#include <QDomDocument>
#include <QtTest>

// Change documents: what is reported, where it is placed, and the button presses.
class TestChangeGenerator : public QObject
{
    Q_OBJECT

private:
    static const QString kHeader;

    // The document after the header line; fails the test when the header is missing.
    static QDomDocument body(const QString& changes);
    // "id=CURRENT" per reported setting, in order, of the settings root's children.
    static QStringList reported(const QString& changes, const QString& rootTag);
    static void change(SettingsParser& parser, const QString& id, const QString& value);

private slots:
    void nothingChanged();
    void changedSettingsInTreeOrder();
    void formSettingPlacedAtTopLevel();
    void formIdReportsOnlyItsSettings();
    void disabledSettingNotReported();
    void idsRoot();
    void buttonPress_data();
    void buttonPress();
    void buttonInsideTableAndForm();
    void unknownOrPlainIdGivesNothing();
    void describeKinds();
    void everySettingOfSamples_data();
    void everySettingOfSamples();
};

const QString TestChangeGenerator::kHeader =
    QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");

QDomDocument TestChangeGenerator::body(const QString& changes)
{
    [&] { QVERIFY(changes.startsWith(kHeader)); }();
    QDomDocument document;
    document.setContent(changes.mid(kHeader.size()));
    return document;
}

QStringList TestChangeGenerator::reported(const QString& changes, const QString& rootTag)
{
    QStringList out;
    const QDomElement top = body(changes).documentElement().firstChildElement(rootTag);
    for (QDomElement e = top.firstChildElement(); !e.isNull(); e = e.nextSiblingElement()) {
        out.append(e.hasAttribute("CURRENT") ? e.tagName() + "=" + e.attribute("CURRENT")
                                             : e.tagName());
    }
    return out;
}

void TestChangeGenerator::change(SettingsParser& parser, const QString& id, const QString& value)
{
    auto* element = qobject_cast<ConcreteElement*>(parser.findElement(id));
    QVERIFY(element);
    element->valueChange(value);
}

const char* const kSettings = "<Paper><Copies TYPE=\"INTEGER\" CURRENT=\"1\" MAX=\"99\"/>"
                              "<Tray TYPE=\"COMBOBOX\" CURRENT=\"T1\"><T1/><T2/></Tray></Paper>"
                              "<Net><Form TYPE=\"POPUP\"><IPAddress TYPE=\"IPADDRESS\" "
                              "CURRENT=\"10.0.0.2\"/><Host TYPE=\"EDITBOX\" CURRENT=\"lp\"/></Form>"
                              "</Net><Press TYPE=\"BUTTON\"/>";

void TestChangeGenerator::nothingChanged()
{
    const auto parser = SpecText::read(kSettings);
    const QString changes = parser->getChanges(QString());
    QCOMPARE(changes, kHeader);
    QVERIFY(parser->getChanges("Form") == kHeader);
}

void TestChangeGenerator::changedSettingsInTreeOrder()
{
    const auto parser = SpecText::read(kSettings);
    change(*parser, "Host", "printer");
    change(*parser, "Copies", "5");
    change(*parser, "Tray", "T2");
    QCOMPARE(reported(parser->getChanges(QString()), "PrinterSettingsInfo"),
             QStringList({"Copies=5", "Tray=T2", "Host=printer"}));
    // Back to the initial text: unchanged again.
    change(*parser, "Tray", "T1");
    QCOMPARE(reported(parser->getChanges(QString()), "PrinterSettingsInfo"),
             QStringList({"Copies=5", "Host=printer"}));
}

void TestChangeGenerator::formSettingPlacedAtTopLevel()
{
    const auto parser = SpecText::read(kSettings);
    change(*parser, "IPAddress", "10.0.0.3");
    const QDomDocument document = body(parser->getChanges(QString()));
    const QDomElement top = document.documentElement();
    QCOMPARE(top.tagName(), QString("root"));
    QCOMPARE(top.childNodes().size(), 1);
    const QDomElement settings = top.firstChildElement("PrinterSettingsInfo");
    QCOMPARE(settings.childNodes().size(), 1);
    QCOMPARE(settings.firstChildElement().tagName(), QString("IPAddress"));
    QCOMPARE(settings.firstChildElement().attribute("CURRENT"), QString("10.0.0.3"));
    QCOMPARE(settings.firstChildElement().attributes().size(), 1);
}

void TestChangeGenerator::formIdReportsOnlyItsSettings()
{
    const auto parser = SpecText::read(kSettings);
    change(*parser, "Copies", "7");
    change(*parser, "Host", "h2");
    QCOMPARE(reported(parser->getChanges("Form"), "PrinterSettingsInfo"), QStringList({"Host=h2"}));
    QCOMPARE(reported(parser->getChanges(QString()), "PrinterSettingsInfo"),
             QStringList({"Copies=7", "Host=h2"}));
}

void TestChangeGenerator::disabledSettingNotReported()
{
    const auto parser = SpecText::read(kSettings);
    change(*parser, "Copies", "7");
    change(*parser, "Host", "h2");
    parser->findElement("Copies")->setEnabled(false);
    QCOMPARE(reported(parser->getChanges(QString()), "PrinterSettingsInfo"),
             QStringList({"Host=h2"}));
}

void TestChangeGenerator::idsRoot()
{
    const auto parser = SpecText::read(kSettings, "IDSInfo");
    change(*parser, "Copies", "3");
    const QDomDocument document = body(parser->getChanges(QString()));
    QVERIFY(document.documentElement().firstChildElement("PrinterSettingsInfo").isNull());
    QCOMPARE(reported(parser->getChanges(QString()), "IDSInfo"), QStringList({"Copies=3"}));
    QCOMPARE(reported(parser->getChanges("Press"), "IDSInfo"), QStringList({"Press=PRESSED"}));
}

void TestChangeGenerator::buttonPress_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<bool>("reported");
    QTest::newRow("BUTTON") << "BUTTON" << true;
    QTest::newRow("CARTRIDGE_ALIGN_HP_INK_MFP_XML") << "CARTRIDGE_ALIGN_HP_INK_MFP_XML" << true;
    QTest::newRow("CARTRIDGE_ALIGN_HP_INK_SFP_XML") << "CARTRIDGE_ALIGN_HP_INK_SFP_XML" << true;
    QTest::newRow("CARTRIDGE_CLEAN_HP_INK_XML") << "CARTRIDGE_CLEAN_HP_INK_XML" << true;
    QTest::newRow("BUTTON_TESTPAGE_HP_INK_XML") << "BUTTON_TESTPAGE_HP_INK_XML" << true;
    QTest::newRow("CARTRIDGE_CLEAN_HP_INK") << "CARTRIDGE_CLEAN_HP_INK" << false;
    QTest::newRow("CARTRIDGE_ALIGN_HP_INK_SFP") << "CARTRIDGE_ALIGN_HP_INK_SFP" << false;
    QTest::newRow("BUTTON_TESTPAGE_HP_INK") << "BUTTON_TESTPAGE_HP_INK" << false;
    QTest::newRow("PHONEBOOK") << "PHONEBOOK" << false;
    QTest::newRow("wireless workaround") << "WIRELESS" << false;
}

void TestChangeGenerator::buttonPress()
{
    QFETCH(QString, keyword);
    QFETCH(bool, reported);
    const QString tag = keyword == "WIRELESS" ? QString("EasyWirelessSettings") : QString("Key");
    const QString type = keyword == "WIRELESS" ? QString("BUTTON") : keyword;
    const auto parser = SpecText::read(
        QStringLiteral("<Copies TYPE=\"INTEGER\" CURRENT=\"1\"/><%1 TYPE=\"%2\"/>").arg(tag, type));
    change(*parser, "Copies", "2");
    const QString changes = parser->getChanges(tag);
    if (!reported) {
        QVERIFY(changes.isEmpty());
        return;
    }
    QCOMPARE(this->reported(changes, "PrinterSettingsInfo"), QStringList({tag + "=PRESSED"}));
    // The pressed button alone, the same text as asking for the button directly.
    QCOMPARE(parser->getButton(parser->findElement(tag)), changes);
}

void TestChangeGenerator::buttonInsideTableAndForm()
{
    const auto parser =
        SpecText::read("<F TYPE=\"POPUP\"><Clean TYPE=\"CARTRIDGE_CLEAN_HP_INK_XML\"/></F>"
                       "<T TYPE=\"TABLE\"><DataRow><DataCell TYPE=\"BUTTON\"/></DataRow></T>");
    QCOMPARE(reported(parser->getChanges("Clean"), "PrinterSettingsInfo"),
             QStringList({"Clean=PRESSED"}));
    QCOMPARE(reported(parser->getChanges("T.1.1"), "PrinterSettingsInfo"),
             QStringList({"T.1.1=PRESSED"}));
}

void TestChangeGenerator::unknownOrPlainIdGivesNothing()
{
    const auto parser = SpecText::read(kSettings);
    change(*parser, "Copies", "9");
    QVERIFY(parser->getChanges("Nope").isEmpty());
    QVERIFY(parser->getChanges("Copies").isEmpty());
    QVERIFY(parser->getChanges("Paper").isEmpty());
    QVERIFY(parser->getButton(nullptr).isEmpty());
}

void TestChangeGenerator::describeKinds()
{
    const auto parser =
        SpecText::read("<G><V TYPE=\"EDITBOX\" CURRENT=\"x\"/><B TYPE=\"BUTTON\"/>"
                       "<K TYPE=\"CARTRIDGE_CLEAN_HP_INK\"/><N TYPE=\"INTEGER\"/></G>");
    ChangeGenerator generator;
    QCOMPARE(generator.createDescription(parser->findElement("V")).attribute("CURRENT"),
             QString("x"));
    QCOMPARE(generator.createDescription(parser->findElement("B")).attribute("CURRENT"),
             QString("PRESSED"));
    QVERIFY(!generator.createDescription(parser->findElement("K")).hasAttribute("CURRENT"));
    QVERIFY(!generator.createDescription(parser->findElement("G")).hasAttribute("CURRENT"));
    // A setting without CURRENT still writes the attribute, empty.
    const QDomElement empty = generator.createDescription(parser->findElement("N"));
    QVERIFY(empty.hasAttribute("CURRENT"));
    QCOMPARE(empty.tagName(), QString("N"));
}

namespace {

// A value other than the current one that the setting accepts; null when none is at hand.
QString newValue(ConcreteElement* element)
{
    if (auto* list = qobject_cast<ListElement*>(element)) {
        for (const Parameter* parameter : list->parameters()) {
            if (parameter->id() != element->current())
                return parameter->id();
        }
    } else if (auto* number = qobject_cast<NumericElement*>(element)) {
        return number->min().isEmpty() ? QString("1") : number->min();
    } else if (qobject_cast<SubnetMaskElement*>(element)) {
        return "255.255.0.0";
    } else if (qobject_cast<IPAddressElement*>(element)) {
        return "10.1.2.3";
    } else if (qobject_cast<DateTimeElement*>(element)) {
        return "2021-02-03 04:05";
    } else if (qobject_cast<EditElement*>(element) || qobject_cast<DialEditElement*>(element)) {
        for (const char* candidate : {"12", "ab", "Z"}) {
            if (ConcreteElement::matchesPattern(element->validationPattern(), candidate))
                return candidate;
        }
    }
    return QString();
}

struct Changed
{
    SettingsParser* parser;
    QStringList settings; // "id=value" in tree order
};

bool changeEach(Element* element, void* data)
{
    auto* changed = static_cast<Changed*>(data);
    auto* setting = qobject_cast<ConcreteElement*>(element);
    // Only settings that their id names unambiguously.
    if (!setting || changed->parser->findElement(element->id()) != element)
        return true;
    const QString value = newValue(setting);
    if (!value.isNull() && value != setting->current()) {
        setting->valueChange(value);
        changed->settings.append(element->id() + "=" + value);
    }
    return true;
}

} // namespace

void TestChangeGenerator::everySettingOfSamples_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("laser") << QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml");
    QTest::newRow("inkjet") << QStringLiteral(TAV_DATA_DIR "/inkjet_mfp.xml");
}

// Every kind of setting, table cells and form settings included, reports its new value under
// its id; once the changes are taken nothing is left to report.
void TestChangeGenerator::everySettingOfSamples()
{
    QFETCH(QString, file);
    SettingsParser parser;
    QFile input(file);
    QVERIFY(parser.open(&input));
    QVERIFY(parser.readPrinterSettings());
    Changed changed{&parser, {}};
    parser.enumerateElements(changeEach, &changed);
    QVERIFY(changed.settings.size() >= 10);
    QCOMPARE(reported(parser.getChanges(QString()), parser.getCurrentPath().section('/', 1)),
             changed.settings);
    parser.enumerateElements(acceptChanges, nullptr);
    QCOMPARE(parser.getChanges(QString()), kHeader);
}

QTEST_MAIN(TestChangeGenerator)
#include "TestChangeGenerator.moc"
