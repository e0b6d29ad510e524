#include "../xml/SpecText.h"
#include "ReceiverProbe.h"

#include "ButtonElement.h"
#include "ConcreteElement.h"
#include "FormElement.h"
#include "InkCartridgeAlignSFPElement.h"

#include <QSignalSpy>
#include <QtTest>

// Buttons and popup forms: what they read, where their signals go.
class TestButtonElement : public QObject
{
    Q_OBJECT

private slots:
    void pressReachesItsSlot_data();
    void pressReachesItsSlot();
    void buttonData();
    void formDefaultFlag_data();
    void formDefaultFlag();
    void formWiring();
    void formFactoryReset();
};

void TestButtonElement::pressReachesItsSlot_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("call");
    QTest::newRow("plain") << "<K TYPE=\"BUTTON\"/>"
                           << "elementChanged:K";
    QTest::newRow("phone book") << "<K TYPE=\"PHONEBOOK\"/>"
                                << "phoneBookClicked:K";
    QTest::newRow("e-mail book") << "<K TYPE=\"EMAILBOOK\"/>"
                                 << "emailBookClicked:K";
    QTest::newRow("address book") << "<K TYPE=\"USERBASEDADDRESSBOOK\"/>"
                                  << "addressBookClicked:K";
    QTest::newRow("wireless") << "<K TYPE=\"WIRELESSSETTING\"/>"
                              << "wirelessSetupClicked:K";
    QTest::newRow("wireless workaround") << "<WirelessSetting TYPE=\"BUTTON\"/>"
                                         << "wirelessSetupClicked:WirelessSetting";
    QTest::newRow("test page") << "<K TYPE=\"BUTTON_TESTPAGE_HP_INK\"/>"
                               << "inkTestPagePrintClicked:K";
    QTest::newRow("clean") << "<K TYPE=\"CARTRIDGE_CLEAN_HP_INK_XML\"/>"
                           << "inkCartridgeCleanClicked:K";
    QTest::newRow("align SFP") << "<K TYPE=\"CARTRIDGE_ALIGN_HP_INK_SFP\"/>"
                               << "inkCartridgeAlignSFPClicked:K";
    QTest::newRow("align MFP") << "<K TYPE=\"CARTRIDGE_ALIGN_HP_INK_MFP_XML\"/>"
                               << "inkCartridgeAlignMFPClicked:K";
}

void TestButtonElement::pressReachesItsSlot()
{
    QFETCH(QString, setting);
    QFETCH(QString, call);
    const auto parser = SpecText::read(setting);
    ReceiverProbe probe;
    parser->root()->connectSignals(&probe);
    parser->root()->connectSignals(&probe);
    auto* button = qobject_cast<ButtonElement*>(parser->findElement(call.section(':', 1)));
    QVERIFY(button);
    QMetaObject::invokeMethod(button, "onClick");
    QCOMPARE(probe.calls, QStringList({call}));
}

void TestButtonElement::buttonData()
{
    const auto parser = SpecText::read(
        "<K TYPE=\"BUTTON\" BUTTONLABEL=\"Print now\"/>"
        "<P TYPE=\"CARTRIDGE_ALIGN_HP_INK_SFP\" PhotoInkCartridgeInstall=\"TRUE\"/>"
        "<Q TYPE=\"CARTRIDGE_ALIGN_HP_INK_SFP_XML\" PhotoInkCartridgeInstall=\"true\"/>");
    QCOMPARE(parser->findElement("K")->property("label").toString(), QString("Print now"));
    QVERIFY(parser->findElement("P")->property("hasPhotoInk").toBool());
    QVERIFY(!qobject_cast<InkCartridgeAlignSFPElement*>(parser->findElement("Q"))->hasPhotoInk());
    QSignalSpy spy(qobject_cast<ButtonElement*>(parser->findElement("K")),
                   &ButtonElement::buttonClicked);
    QMetaObject::invokeMethod(parser->findElement("K"), "onClick");
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("K"));
}

void TestButtonElement::formDefaultFlag_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<bool>("isDefault");
    QTest::newRow("TRUE") << " DEFAULT=\"TRUE\"" << true;
    QTest::newRow("true") << " DEFAULT=\"true\"" << false;
    QTest::newRow("missing") << "" << false;
}

void TestButtonElement::formDefaultFlag()
{
    QFETCH(QString, attribute);
    QFETCH(bool, isDefault);
    const auto parser = SpecText::read(QStringLiteral("<F TYPE=\"POPUP\"%1/>").arg(attribute));
    auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
    QCOMPARE(form->isDefault(), isDefault);
    QVERIFY(!form->form());
}

void TestButtonElement::formWiring()
{
    const auto parser = SpecText::read("<F TYPE=\"POPUP\"><A TYPE=\"EDITBOX\" CURRENT=\"a\"/>"
                                       "<K TYPE=\"BUTTON\"/></F>");
    ReceiverProbe probe;
    parser->root()->connectSignals(&probe);
    parser->root()->connectSignals(&probe);
    auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
    emit form->applyClicked();
    qobject_cast<ConcreteElement*>(parser->findElement("A"))->valueChange("b");
    form->hide();
    QCOMPARE(probe.calls, QStringList({"popupApplyClicked:", "elementChanged:b"}));
}

void TestButtonElement::formFactoryReset()
{
    const auto parser = SpecText::read("<F TYPE=\"POPUP\" DEFAULT=\"TRUE\">"
                                       "<A TYPE=\"EDITBOX\" CURRENT=\"a\" FACTORY=\"f\"/>"
                                       "<B TYPE=\"INTEGER\" CURRENT=\"2\"/><T TYPE=\"STATICTEXT\" "
                                       "CURRENT=\"t\"/></F>");
    auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
    form->defaultBtnClicked();
    QCOMPARE(parser->findElement("A")->property("current").toString(), QString("f"));
    // Without FACTORY there is no default to go back to.
    QCOMPARE(parser->findElement("B")->property("current").toString(), QString("2"));
    QCOMPARE(parser->findElement("T")->property("current").toString(), QString("t"));
}

QTEST_MAIN(TestButtonElement)
#include "TestButtonElement.moc"
