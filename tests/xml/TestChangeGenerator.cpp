#include "../elements/Rows.h"
#include "SpecText.h"

#include "elements/DateTimeElement.h"
#include "elements/DialEditElement.h"
#include "elements/EditElement.h"
#include "elements/IPAddressElement.h"
#include "elements/ListElement.h"
#include "elements/NumericElement.h"
#include "elements/Parameter.h"
#include "elements/SubnetMaskElement.h"

#include <QtTest>

namespace {

const QString kHeader = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");

const char* const kSettings = "<Paper><Copies TYPE='INTEGER' CURRENT='1' MAX='99'/>"
                              "<Tray TYPE='COMBOBOX' CURRENT='T1'><T1/><T2/></Tray></Paper>"
                              "<Net><Form TYPE='POPUP'><IPAddress TYPE='IPADDRESS' "
                              "CURRENT='10.0.0.2'/><Host TYPE='EDITBOX' CURRENT='lp'/></Form>"
                              "</Net><Press TYPE='BUTTON'/>";

// "id=CURRENT" per reported setting, in order, of the settings root's children; fails the
// test when the header is missing.
QStringList reported(const QString& changes, const QString& rootTag = "PrinterSettingsInfo")
{
    [&] { QVERIFY(changes.startsWith(kHeader)); }();
    QDomDocument document;
    document.setContent(changes.mid(kHeader.size()));
    QStringList out;
    const QDomElement top = document.documentElement().firstChildElement(rootTag);
    for (QDomElement e = top.firstChildElement(); !e.isNull(); e = e.nextSiblingElement())
        out.append(e.tagName() + "=" + e.attribute("CURRENT"));
    return out;
}

void change(SettingsParser& parser, const QString& id, const QString& value)
{
    auto* element = qobject_cast<ConcreteElement*>(parser.findElement(id));
    QVERIFY(element);
    element->valueChange(value);
}

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

// Change documents: what is reported, where it is placed, and the button presses.
class TestChangeGenerator : public QObject
{
    Q_OBJECT

private slots:
    // Nothing changed gives the bare header; an id that names no button gives nothing.
    void nothingToReport()
    {
        const auto parser = SpecText::read(kSettings);
        QCOMPARE(parser->getChanges(QString()), kHeader);
        QCOMPARE(parser->getChanges("Form"), kHeader);
        change(*parser, "Copies", "9");
        for (const char* id : {"Nope", "Copies", "Paper"})
            QVERIFY2(parser->getChanges(id).isEmpty(), id);
        QVERIFY(parser->getButton(nullptr).isEmpty());
    }

    // The whole text: settings of groups and forms alike sit directly under the root path,
    // with CURRENT only, in tree order.
    void documentText()
    {
        const auto parser = SpecText::read(kSettings);
        change(*parser, "Host", "printer");
        change(*parser, "IPAddress", "10.0.0.3");
        change(*parser, "Copies", "5");
        QCOMPARE(parser->getChanges(QString()),
                 kHeader + "<!DOCTYPE doc>\n<root>\n <PrinterSettingsInfo>\n"
                           "  <Copies CURRENT=\"5\"/>\n  <IPAddress CURRENT=\"10.0.0.3\"/>\n"
                           "  <Host CURRENT=\"printer\"/>\n </PrinterSettingsInfo>\n</root>\n");
    }

    void unchangedAgainOrDisabledNotReported()
    {
        const auto parser = SpecText::read(kSettings);
        change(*parser, "Copies", "7");
        change(*parser, "Host", "h2");
        change(*parser, "Tray", "T2");
        change(*parser, "Tray", "T1"); // back to the initial text: unchanged again
        parser->findElement("Copies")->setEnabled(false);
        QCOMPARE(reported(parser->getChanges(QString())), QStringList({"Host=h2"}));
    }

    void idsRoot()
    {
        const auto parser = SpecText::read(kSettings, "IDSInfo");
        change(*parser, "Copies", "3");
        QCOMPARE(reported(parser->getChanges(QString()), "PrinterSettingsInfo"), QStringList());
        QCOMPARE(reported(parser->getChanges(QString()), "IDSInfo"), QStringList({"Copies=3"}));
        QCOMPARE(reported(parser->getChanges("Press"), "IDSInfo"), QStringList({"Press=PRESSED"}));
    }

    void buttonPress_data()
    {
        QTest::addColumn<QString>("keyword");
        QTest::addColumn<bool>("reported");
        for (const char* keyword :
             {"BUTTON", "CARTRIDGE_ALIGN_HP_INK_MFP_XML", "CARTRIDGE_ALIGN_HP_INK_SFP_XML",
              "CARTRIDGE_CLEAN_HP_INK_XML", "BUTTON_TESTPAGE_HP_INK_XML"})
            QTest::newRow(keyword) << keyword << true;
        for (const char* keyword : {"CARTRIDGE_CLEAN_HP_INK", "CARTRIDGE_ALIGN_HP_INK_SFP",
                                    "CARTRIDGE_ALIGN_HP_INK_MFP", "BUTTON_TESTPAGE_HP_INK",
                                    "PHONEBOOK", "EMAILBOOK", "USERBASEDADDRESSBOOK", "WIRELESS"})
            QTest::newRow(keyword) << keyword << false;
    }
    void buttonPress()
    {
        QFETCH(QString, keyword);
        QFETCH(bool, reported);
        // The wireless set-up arrives as a BUTTON with its fixed id.
        const QString tag = keyword == "WIRELESS" ? QString("EasyWirelessSettings") : "Key";
        const QString type = keyword == "WIRELESS" ? QString("BUTTON") : keyword;
        const auto parser = SpecText::read(
            QStringLiteral("<Copies TYPE='INTEGER' CURRENT='1'/><%1 TYPE='%2'/>").arg(tag, type));
        change(*parser, "Copies", "2");
        const QString changes = parser->getChanges(tag);
        QCOMPARE(changes.isEmpty(), !reported);
        if (!reported)
            return;
        QCOMPARE(::reported(changes), QStringList({tag + "=PRESSED"}));
        // The pressed button alone, the same text as asking for the button directly.
        QCOMPARE(parser->getButton(parser->findElement(tag)), changes);
    }

    void buttonInsideTableAndForm()
    {
        const auto parser =
            SpecText::read("<F TYPE='POPUP'><Clean TYPE='CARTRIDGE_CLEAN_HP_INK_XML'/></F>"
                           "<T TYPE='TABLE'><DataRow><DataCell TYPE='BUTTON'/></DataRow></T>");
        QCOMPARE(reported(parser->getChanges("Clean")), QStringList({"Clean=PRESSED"}));
        QCOMPARE(reported(parser->getChanges("T.1.1")), QStringList({"T.1.1=PRESSED"}));
    }

    void everySettingOfSamples_data()
    {
        addRows({"file"}, {{"laser", TAV_DATA_DIR "/laser_mfp.xml"},
                           {"inkjet", TAV_DATA_DIR "/inkjet_mfp.xml"}});
    }
    // Every kind of setting, table cells and form settings included, reports its new value
    // under its id; once the changes are taken nothing is left to report.
    void everySettingOfSamples()
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
};

QTEST_MAIN(TestChangeGenerator)
#include "TestChangeGenerator.moc"
