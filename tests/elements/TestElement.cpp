#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"
#include "ReceiverProbe.h"

#include "ComplexElement.h"
#include "ConcreteElement.h"
#include "ElementType.h"
#include "SettingsViewItem.h"

#include <QDomDocument>
#include <QLabel>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>

// The element model shared by every kind: texts, walks and lookups, wiring, values,
// validation and the control.
class TestElement : public QObject
{
    Q_OBJECT

private:
    static bool record(Element* element, void* data);
    static bool stopAt(Element* element, void* data);
    static ConcreteElement* concrete(SettingsParser& parser, const QString& id);

private slots:
    void toStringFormat();
    void typeNameOfEmptyCode();
    void nullAndEmptyValues();
    void iterateVisitsLeavesOnly();
    void iterateStops();
    void enumerateChildrenDirectOnly();
    void findFirstDepthFirst();
    void hasComplexChildren();
    void connectSignalsOnce();
    void reconnectReportsFailure();
    void valueChange();
    void acceptAndReject();
    void isValidPatternAndDisabled();
    void unknownControl();
    void showHideAndEnable();
    void dependentElementsById();
    void lists();
};

bool TestElement::record(Element* element, void* data)
{
    static_cast<QStringList*>(data)->append(element->id());
    return true;
}

bool TestElement::stopAt(Element* element, void* data)
{
    auto* seen = static_cast<QStringList*>(data);
    seen->append(element->id());
    return element->id() != "B";
}

ConcreteElement* TestElement::concrete(SettingsParser& parser, const QString& id)
{
    return qobject_cast<ConcreteElement*>(parser.findElement(id));
}

const char* const kTree = "<G1 STRING=\"Group\"><A TYPE=\"INTEGER\" CURRENT=\"1\"/>"
                          "<Sub><B TYPE=\"EDITBOX\" CURRENT=\"b\"/><A TYPE=\"INTEGER\" "
                          "CURRENT=\"2\"/></Sub></G1><C TYPE=\"BUTTON\"/>";

void TestElement::toStringFormat()
{
    const auto parser = SpecText::read("<A TYPE=\"INTEGER\" STRING=\"Copies\"/>");
    Element* a = parser->findElement("A");
    const QString expected = QString::asprintf(
        "\tid\t = A\n\tstring\t = Copies\n\ttitle\t = Copies\n\tdesc\t = Copies\n\taddr\t = "
        "%p\n\ttype\t = stInteger\n\tcontrol\t = %p\n",
        static_cast<void*>(a), static_cast<void*>(nullptr));
    QCOMPARE(a->toString(), expected);
}

void TestElement::typeNameOfEmptyCode()
{
    QDomDocument document;
    document.setContent(QString("<Node/>"));
    Element element(document.documentElement(), etEmpty, nullptr, nullptr);
    QCOMPARE(element.typeName(), QString("stUnknown"));
    QCOMPARE(element.type(), int(etEmpty));
    QCOMPARE(element.level(), 0u);
    QVERIFY(element.format().isNull());
    QVERIFY(!element.associatedObject());
    int marker = 0;
    element.setAssociatedObject(&marker);
    QCOMPARE(element.associatedObject(), static_cast<void*>(&marker));
}

void TestElement::nullAndEmptyValues()
{
    const auto parser = SpecText::read("<A TYPE=\"INTEGER\" FormatConstraint=\"9\"/>"
                                       "<B TYPE=\"INTEGER\" CURRENT=\"\"/>");
    ConcreteElement* a = concrete(*parser, "A");
    QVERIFY(a->current().isNull());
    QVERIFY(a->initial().isNull());
    QVERIFY(!a->isChanged());
    QCOMPARE(a->format(), QString("9"));
    QCOMPARE(a->temp(), a->current());
    ConcreteElement* b = concrete(*parser, "B");
    QVERIFY(!b->current().isNull());
    QCOMPARE(b->objectName(), QString());
}

void TestElement::iterateVisitsLeavesOnly()
{
    const auto parser = SpecText::read(kTree);
    QStringList seen;
    QVERIFY(parser->enumerateElements(record, &seen));
    QCOMPARE(seen, QStringList({"A", "B", "A", "C"}));
    Element* leaf = parser->findElement("C");
    seen.clear();
    QVERIFY(leaf->iterateElements(record, &seen));
    QCOMPARE(seen, QStringList({"C"}));
}

void TestElement::iterateStops()
{
    const auto parser = SpecText::read(kTree);
    QStringList seen;
    QVERIFY(!parser->enumerateElements(stopAt, &seen));
    QCOMPARE(seen, QStringList({"A", "B"}));
}

void TestElement::enumerateChildrenDirectOnly()
{
    const auto parser = SpecText::read(kTree);
    auto* group = qobject_cast<ComplexElement*>(parser->findElement("G1"));
    QStringList seen;
    QVERIFY(group->enumerateChildren(record, &seen));
    QCOMPARE(seen, QStringList({"A", "Sub"}));
}

void TestElement::findFirstDepthFirst()
{
    const auto parser = SpecText::read(kTree);
    ConcreteElement* a = concrete(*parser, "A");
    QCOMPARE(a->current(), QString("1"));
    QCOMPARE(parser->findElement("Sub")->level(), 2u);
    QCOMPARE(parser->findElement("B")->parentElement(), parser->findElement("Sub"));
    QCOMPARE(parser->findElement("PrinterSettingsInfo"), parser->root());
    QVERIFY(!parser->findElement("Missing"));
    QCOMPARE(parser->findElement("Sub")->findElement("A")->property("current").toString(),
             QString("2"));
}

void TestElement::hasComplexChildren()
{
    const auto parser = SpecText::read(kTree);
    QVERIFY(parser->findElement("G1")->hasComplexChildren());
    QVERIFY(!parser->findElement("Sub")->hasComplexChildren());
    QVERIFY(!parser->findElement("A")->hasComplexChildren());
}

void TestElement::connectSignalsOnce()
{
    const auto parser = SpecText::read(kTree);
    ReceiverProbe probe;
    parser->root()->connectSignals(&probe);
    parser->root()->connectSignals(&probe);
    ConcreteElement* b = concrete(*parser, "B");
    b->valueChange("new");
    emit b->valueReset();
    b->hide();
    QCOMPARE(probe.calls,
             QStringList({"elementChanged:new", "elementReset:", "changeVisibility:false"}));
}

void TestElement::reconnectReportsFailure()
{
    const auto parser = SpecText::read("<A TYPE=\"INTEGER\"/>");
    QObject plain;
    StderrCapture capture;
    // Qt adds its own warnings about the missing slots; they are not what is tested here.
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    parser->findElement("A")->connectSignals(&plain);
    qInstallMessageHandler(previous);
    const QByteArray log = capture.text();
    QVERIFY2(log.contains("unable to connect 'NumericElement'/'valueChanged(const QString&)' to "
                          "'QObject'/'elementChanged(const QString&)'"),
             log.constData());
    QCOMPARE(log.count("unable to connect"), 3);
}

void TestElement::valueChange()
{
    const auto parser = SpecText::read("<A TYPE=\"EDITBOX\" CURRENT=\"x\"/>");
    ConcreteElement* a = concrete(*parser, "A");
    QSignalSpy spy(a, &ConcreteElement::valueChanged);
    a->valueChange("x");
    QCOMPARE(spy.count(), 0);
    a->valueChange("y");
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("y"));
    QCOMPARE(a->current(), QString("y"));
    QCOMPARE(a->initial(), QString("x"));
    QCOMPARE(a->objectName(), QString("x"));
    QVERIFY(a->isChanged());
}

void TestElement::acceptAndReject()
{
    const auto parser = SpecText::read(kTree);
    ConcreteElement* a = concrete(*parser, "A");
    ConcreteElement* b = concrete(*parser, "B");
    a->valueChange("5");
    b->valueChange("c");
    QSignalSpy spy(b, &ConcreteElement::valueChanged);
    Element* sub = parser->findElement("Sub");
    QVERIFY(sub->iterateElements(rejectChanges, nullptr));
    QCOMPARE(b->current(), QString("b"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("b"));
    QCOMPARE(a->current(), QString("5"));
    QVERIFY(parser->enumerateElements(acceptChanges, nullptr));
    QCOMPARE(a->initial(), QString("5"));
    QCOMPARE(a->objectName(), QString("5"));
    QVERIFY(acceptChanges(parser->findElement("C"), nullptr));
    QVERIFY(rejectChanges(parser->findElement("G1"), nullptr));
}

void TestElement::isValidPatternAndDisabled()
{
    const auto parser = SpecText::read("<A TYPE=\"EDITBOX\" CURRENT=\"ok\"/>");
    ConcreteElement* a = concrete(*parser, "A");
    QVERIFY(a->isValid());
    a->valueChange("not_ok");
    QVERIFY(!a->isValid());
    a->setEnabled(false);
    QVERIFY(a->isValid());
    QVERIFY(!a->isEnabled());
}

void TestElement::unknownControl()
{
    QDomDocument document;
    document.setContent(QString("<A/>"));
    Element element(document.documentElement(), etUnknown, nullptr, nullptr);
    Element* a = &element;
    QWidget panel;
    QWidget* control = a->createControl(&panel);
    auto* label = qobject_cast<QLabel*>(control);
    QVERIFY(label);
    QCOMPARE(label->text(), QString("Unknown control type"));
    QCOMPARE(label->parentWidget(), &panel);
    QCOMPARE(a->control(), control);
    QVERIFY(
        a->toString().contains(QString::asprintf("control\t = %p", static_cast<void*>(control))));
    a->deleteControl();
    QVERIFY(!a->control());
    QVERIFY(panel.findChildren<QLabel*>().isEmpty());
    // A control destroyed elsewhere is forgotten, not left dangling.
    a->createControl(&panel);
    delete a->control();
    QVERIFY(!a->control());
}

void TestElement::showHideAndEnable()
{
    QDomDocument document;
    document.setContent(QString("<A/>"));
    Element element(document.documentElement(), etUnknown, nullptr, nullptr);
    Element* a = &element;
    QWidget panel;
    a->createControl(&panel);
    panel.show();
    QSignalSpy spy(a, &Element::visibleChanged);
    a->hide();
    QVERIFY(!a->control()->isVisible());
    a->show();
    QVERIFY(a->control()->isVisible());
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).at(0).toBool(), false);
    QCOMPARE(spy.at(1).at(0).toBool(), true);
    a->setEnabled(false);
    QVERIFY(!a->control()->isEnabled());
    a->setEnabled(true);
    QVERIFY(a->control()->isEnabled());
}

void TestElement::dependentElementsById()
{
    const auto parser = SpecText::read(kTree);
    Element* b = parser->findElement("B");
    Element* firstA = parser->findElement("A");
    Element* secondA = parser->findElement("Sub")->findElement("A");
    b->addDependentElement(firstA);
    b->addDependentElement(secondA);
    b->addDependentElement(nullptr);
    QCOMPARE(b->dependentElements(), QList<Element*>({firstA}));
}

void TestElement::lists()
{
    const auto parser = SpecText::read(kTree + QString("<G2><D TYPE=\"COMBOBOX\" CURRENT=\"d2\">"
                                                       "<d1/><d2 STRING=\"Two\"/></D></G2>"));
    QTreeWidget favourites;
    QTreeWidget params;
    params.setColumnCount(2);
    parser->root()->addToFavoriteList(&favourites);
    parser->root()->addToParamList(&params);
    QCOMPARE(favourites.topLevelItemCount(), 2);
    auto* first = static_cast<SettingsViewItem*>(favourites.topLevelItem(0));
    QCOMPARE(first->element(), parser->findElement("G1"));
    QCOMPARE(first->text(0), QString("Group"));
    QCOMPARE(params.topLevelItemCount(), 3);
    QTreeWidgetItem* group = params.topLevelItem(0);
    QCOMPARE(group->text(0), QString("Group"));
    QCOMPARE(group->childCount(), 2);
    QCOMPARE(group->child(0)->text(1), QString("1"));
    QCOMPARE(group->child(1)->text(0), QString("Sub"));
    QCOMPARE(group->child(1)->child(0)->text(1), QString("b"));
    QCOMPARE(params.topLevelItem(1)->text(0), QString("C"));
    QCOMPARE(params.topLevelItem(2)->child(0)->text(1), QString("Two"));
}

QTEST_MAIN(TestElement)
#include "TestElement.moc"
