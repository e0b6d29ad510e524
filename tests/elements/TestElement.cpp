#include "../xml/SpecText.h"
#include "ReceiverProbe.h"

#include "ComplexElement.h"
#include "ConcreteElement.h"
#include "ElementType.h"

#include <QDomDocument>
#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

namespace {

const char* const kTree = "<G1 STRING='Group'><A TYPE='INTEGER' CURRENT='1'/>"
                          "<Sub><B TYPE='EDITBOX' CURRENT='b'/><A TYPE='INTEGER' "
                          "CURRENT='2'/></Sub></G1><C TYPE='BUTTON'/>";

// Records the ids a walk visits; stops it at `stopAt`.
struct Walk
{
    QStringList seen;
    QString stopAt;
    static bool visit(Element* element, void* data)
    {
        auto* walk = static_cast<Walk*>(data);
        walk->seen.append(element->id());
        return element->id() != walk->stopAt;
    }
};

ConcreteElement* concrete(SettingsParser& parser, const QString& id)
{
    return qobject_cast<ConcreteElement*>(parser.findElement(id));
}

} // namespace

// The element model shared by every kind: texts, walks and lookups, wiring, values,
// validation and the control.
class TestElement : public QObject
{
    Q_OBJECT

private slots:
    void nullAndEmptyValues()
    {
        const auto parser = SpecText::read("<A TYPE='INTEGER' FormatConstraint='9'/>"
                                           "<B TYPE='INTEGER' CURRENT=''/>");
        ConcreteElement* a = concrete(*parser, "A");
        QVERIFY(a->current().isNull() && a->initial().isNull());
        QVERIFY(!a->isChanged());
        QCOMPARE(a->format(), QString("9"));
        QVERIFY(!concrete(*parser, "B")->current().isNull());
    }

    void walksAndLookups()
    {
        const auto parser = SpecText::read(kTree);
        Walk all, stopped{{}, "B"}, children, leaf;
        QVERIFY(parser->enumerateElements(Walk::visit, &all));
        QCOMPARE(all.seen, QStringList({"A", "B", "A", "C"}));
        QVERIFY(!parser->enumerateElements(Walk::visit, &stopped));
        QCOMPARE(stopped.seen, QStringList({"A", "B"}));
        auto* group = qobject_cast<ComplexElement*>(parser->findElement("G1"));
        QVERIFY(group->enumerateChildren(Walk::visit, &children));
        QCOMPARE(children.seen, QStringList({"A", "Sub"}));
        QVERIFY(parser->findElement("C")->iterateElements(Walk::visit, &leaf));
        QCOMPARE(leaf.seen, QStringList({"C"}));
        // Lookups go depth first and take the first match.
        QCOMPARE(concrete(*parser, "A")->current(), QString("1"));
        Element* sub = parser->findElement("Sub");
        QCOMPARE(sub->findElement("A")->property("current").toString(), QString("2"));
        QCOMPARE(parser->findElement("B")->parentElement(), sub);
        QCOMPARE(sub->level(), 2u);
        QCOMPARE(parser->findElement("PrinterSettingsInfo"), parser->root());
        QVERIFY(!parser->findElement("Missing"));
        QVERIFY(group->hasComplexChildren());
        QVERIFY(!sub->hasComplexChildren());
    }

    void connectSignalsOnce()
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

    void valueChangeAndValidity()
    {
        const auto parser = SpecText::read("<A TYPE='EDITBOX' CURRENT='ok'/>");
        ConcreteElement* a = concrete(*parser, "A");
        QSignalSpy spy(a, &ConcreteElement::valueChanged);
        a->valueChange("ok");
        QCOMPARE(spy.count(), 0);
        QVERIFY(a->isValid());
        a->valueChange("not_ok");
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), QString("not_ok"));
        QCOMPARE(a->initial(), QString("ok"));
        QCOMPARE(a->objectName(), QString("ok"));
        QVERIFY(a->isChanged());
        QVERIFY(!a->isValid());
        // A disabled setting never blocks.
        a->setEnabled(false);
        QVERIFY(a->isValid());
    }

    void acceptAndReject()
    {
        const auto parser = SpecText::read(kTree);
        ConcreteElement* a = concrete(*parser, "A");
        ConcreteElement* b = concrete(*parser, "B");
        a->valueChange("5");
        b->valueChange("c");
        QSignalSpy spy(b, &ConcreteElement::valueChanged);
        QVERIFY(parser->findElement("Sub")->iterateElements(rejectChanges, nullptr));
        QCOMPARE(b->current(), QString("b"));
        QCOMPARE(spy.value(0).value(0).toString(), QString("b"));
        QCOMPARE(a->current(), QString("5"));
        QVERIFY(parser->enumerateElements(acceptChanges, nullptr));
        QCOMPARE(a->initial(), QString("5"));
        QCOMPARE(a->objectName(), QString("5"));
        QVERIFY(acceptChanges(parser->findElement("C"), nullptr));
        QVERIFY(rejectChanges(parser->findElement("G1"), nullptr));
    }

    void unknownControl()
    {
        QDomDocument document;
        document.setContent(QString("<A/>"));
        Element a(document.documentElement(), etUnknown, nullptr, nullptr);
        QCOMPARE(a.typeName(), QString("stUnknown"));
        QWidget panel;
        auto* label = qobject_cast<QLabel*>(a.createControl(&panel));
        QVERIFY(label);
        QCOMPARE(label->text(), QString("Unknown control type"));
        QCOMPARE(a.control(), label);
        panel.show();
        QSignalSpy spy(&a, &Element::visibleChanged);
        a.hide();
        QVERIFY(!label->isVisible());
        a.show();
        QVERIFY(label->isVisible());
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(0).at(0).toBool(), false);
        a.setEnabled(false);
        QVERIFY(!label->isEnabled());
        a.setEnabled(true);
        QVERIFY(label->isEnabled());
        a.deleteControl();
        QVERIFY(!a.control());
        QVERIFY(panel.findChildren<QLabel*>().isEmpty());
        // A control destroyed elsewhere is forgotten, not left dangling.
        a.createControl(&panel);
        delete a.control();
        QVERIFY(!a.control());
    }

    void dependentElementsById()
    {
        const auto parser = SpecText::read(kTree);
        Element* b = parser->findElement("B");
        Element* firstA = parser->findElement("A");
        b->addDependentElement(firstA);
        b->addDependentElement(parser->findElement("Sub")->findElement("A"));
        b->addDependentElement(nullptr);
        QCOMPARE(b->dependentElements(), QList<Element*>({firstA}));
    }
};

QTEST_MAIN(TestElement)
#include "TestElement.moc"
