#include "../xml/SpecText.h"
#include "ReceiverProbe.h"
#include "Rows.h"

#include "elements/ComplexElement.h"
#include "elements/FactoryElement.h"
#include "xml/ElementType.h"

#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDomDocument>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QSlider>
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

// "current|initial|object name|changed or same|valid or invalid"
QString state(ConcreteElement* e)
{
    return QStringList({e->current(), e->initial(), e->objectName(),
                        e->isChanged() ? "changed" : "same", e->isValid() ? "valid" : "invalid"})
        .join('|');
}

ConcreteElement* concrete(SettingsParser& parser, const QString& id)
{
    return qobject_cast<ConcreteElement*>(parser.findElement(id));
}

// What a control shows: the check state, the checked radio button or the widget's text.
QString shown(QWidget* control)
{
    if (auto* box = qobject_cast<QCheckBox*>(control))
        return box->isChecked() ? "on" : "off";
    if (auto* combo = qobject_cast<QComboBox*>(control))
        return combo->currentText();
    if (auto* spin = qobject_cast<QAbstractSpinBox*>(control))
        return spin->text();
    if (auto* edit = qobject_cast<QLineEdit*>(control))
        return edit->text();
    if (auto* slider = qobject_cast<QSlider*>(control))
        return QString::number(slider->value());
    const QAbstractButton* checked = control->findChild<QButtonGroup*>()->checkedButton();
    return checked ? checked->objectName() : "";
}

} // namespace

// The element model shared by every kind: texts, walks and lookups, wiring, values,
// validation, and every value kind's control driven through its widget.
class TestElement : public QObject
{
    Q_OBJECT

private slots:
    // Each row: the setting after "<S TYPE='", the value put in from outside, what the control
    // then shows, one edit ("click [child]", "key <key>" or "type <text>") and the value stored.
    void everyKind_data()
    {
        // A list announces a choice even when it is the stored one.
        addRows(
            {"setting", "silent", "shownAfter", "edit", "stored"},
            {
                {"check box", "CHECKBOX' CURRENT='A'><A/><B/>", "B", "on", "click", "A"},
                {"radio", "RADIOBUTTON' CURRENT='A'><A/><B/>", "B", "B", "click A", "A"},
                {"combo", "COMBOBOX' CURRENT='A'><A/><B/>", "B", "B", "key Up", "A"},
                {"integer", "INTEGER' MAX='90' CURRENT='30'>", "7", "7", "key Up", "8"},
                {"float", "FLOAT' MAX='9' DIGITS='1' CURRENT='3'>", "1.5", "1.5", "key Up", "1.6"},
                {"slider, in steps", "SLIDER' MAX='90' STEP='10' CURRENT='30'>", "80", "8",
                 "key Up", "90"},
                {"edit drops '_'", "EDITBOX' CURRENT='old'>", "new", "new", "type _s", "news"},
                {"allowed set", "EDITBOX'><AllowedCharacters>xy</AllowedCharacters>", "x", "x",
                 "type ay", "xy"},
                {"dial keeps digits", "DIALEDITBOX'>", "+4", "+4", "type x9", "+49"},
                {"ip part up to 255", "IPADDRESS'>", "10.0.0.2", "10.0.0.2", "type 59",
                 "10.0.0.25"},
                {"subnet mask", "SUBNETMASK'>", "255.255.25", "255.255.25", "type 23",
                 "255.255.252"},
                {"date time", "DATETIME' CURRENT='2007-03-05 17:09'>", "", "2007-03-05 17:09:00",
                 "key Up", "2008-03-05 17:09"},
            });
    }
    void everyKind()
    {
        const auto [setting, silent, shownAfter, edit, stored] = texts<5>();
        const auto parser = SpecText::read("<S TYPE='" + setting + "</S>");
        ConcreteElement* element = concrete(*parser, "S");
        ReceiverProbe probe;
        QWidget panel;
        QVERIFY(wireTwiceAndRecreate(parser->root(), probe, element, panel));
        panel.show();
        QSignalSpy spy(element, &ConcreteElement::valueChanged);
        const QString before = element->current();
        if (!silent.isEmpty())
            qobject_cast<FactoryElement*>(element)->setControlValue(silent);
        QCOMPARE(shown(element->control()), shownAfter);
        QCOMPARE(element->current(), before);
        QCOMPARE(spy.count(), 0);
        const QString how = edit.section(' ', 0, 0), what = edit.section(' ', 1);
        if (how == "click")
            QTest::mouseClick(what.isEmpty() ? element->control() : panel.findChild<QWidget*>(what),
                              Qt::LeftButton);
        else if (how == "key")
            QTest::keyClick(element->control(), QKeySequence(what)[0].key());
        else
            QTest::keyClicks(element->control(), what);
        QCOMPARE(element->current(), stored);
        QCOMPARE(spy.count(), 1);
        // Connected twice, every signal still arrives once.
        emit element->valueReset();
        element->hide();
        QCOMPARE(probe.calls, QStringList({"elementChanged:" + stored,
                                           "elementReset:", "changeVisibility:false"}));
    }

    // Each row: the setting after "<S TYPE='", the locale, the user's edit ("key <key>", or
    // "type <text>" over the selected text) and what the next Apply sends for the setting: its
    // CURRENT, "-" for nothing, "invalid" when the setting blocks Apply.
    void whatIsSent_data()
    {
        addRows(
            {"setting", "locale", "edit", "sent"},
            {
                {"no limits", "INTEGER' CURRENT='3'>", "C", "", "-"},
                {"only MAX, below 0", "INTEGER' CURRENT='-2' MAX='5'>", "C", "", "-"},
                {"above MAX", "INTEGER' CURRENT='120' MIN='0' MAX='100'>", "C", "", "100"},
                {"MAX 1e3", "INTEGER' CURRENT='2000' MAX='1e3'>", "C", "", "1000"},
                {"MAX 5.0", "INTEGER' CURRENT='7' MIN='1' MAX='5.0'>", "C", "", "5"},
                {"MAX no number", "INTEGER' CURRENT='7' MAX='many'>", "C", "", "-"},
                {"no MIN", "INTEGER' CURRENT='0' MAX='5'>", "C", "key Down", "-1"},
                {"grouped en_US", "INTEGER' CURRENT='3' MAX='5000'>", "en_US", "type 1,500",
                 "1500"},
                {"grouped de_DE", "INTEGER' CURRENT='3' MAX='5000'>", "de_DE", "type 1.500",
                 "1500"},
                {"comma de_DE", "FLOAT' DIGITS='1' MAX='9' CURRENT='3'>", "de_DE", "type 1,5",
                 "1.5"},
                {"grouped decimal en_US", "FLOAT' DIGITS='1' MAX='5000' CURRENT='3'>", "en_US",
                 "type 2,000.5", "2000.5"},
                {"nan", "FLOAT' DIGITS='1' MAX='9' CURRENT='nan'>", "C", "", "invalid"},
                {"inf", "FLOAT' DIGITS='1' MAX='9' CURRENT='-inf'>", "C", "", "invalid"},
                {"-0", "FLOAT' DIGITS='1' MIN='-1' MAX='1' CURRENT='-0'>", "C", "", "-"},
                {"8 digits to 100", "FLOAT' DIGITS='8' MAX='100' CURRENT='50'>", "C", "key Up",
                 "50.0000001"},
                {"float beyond int", "FLOAT' DIGITS='2' MAX='10' CURRENT='3000000000'>", "C", "",
                 "invalid"},
                {"integer no number", "INTEGER' CURRENT='abc' MIN='2' MAX='10'>", "C", "",
                 "invalid"},
                {"integer beyond int", "INTEGER' CURRENT='3000000000' MAX='10'>", "C", "",
                 "invalid"},
                {"set :abc:",
                 "EDITBOX' CURRENT=':ab:'><AllowedCharacters>:abc:</AllowedCharacters>", "C", "",
                 "-"},
                {"set .a.", "EDITBOX' CURRENT='a'><AllowedCharacters>.a.</AllowedCharacters>", "C",
                 "type .a", ".a"},
                {"emptied at load", "EDITBOX' CURRENT='Sales_2F'>", "C", "", "-"},
                {"emptied, then typed", "EDITBOX' CURRENT='Sales_2F'>", "C", "type HR", "HR"},
                {"slider over all int", "SLIDER' MIN='-2147483648' MAX='2147483647' CURRENT='0'>",
                 "C", "key End", "2147483647"},
            });
    }
    void whatIsSent()
    {
        const auto [setting, locale, edit, sent] = texts<4>();
        const QLocale before;
        QLocale::setDefault(QLocale(locale));
        const auto restore = qScopeGuard([&before] { QLocale::setDefault(before); });
        const auto parser = SpecText::read("<S STRING='Setting' TYPE='" + setting + "</S>");
        ConcreteElement* element = concrete(*parser, "S");
        QWidget panel;
        element->createControl(&panel);
        panel.show();
        QWidget* control = element->control();
        const QString how = edit.section(' ', 0, 0), what = edit.section(' ', 1);
        if (how == "key") {
            QTest::keyClick(control, QKeySequence(what)[0].key());
        } else if (how == "type") {
            QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(control, what);
        }
        // Apply validates every setting first, then asks for the changes.
        QString result = "invalid";
        if (element->isValid()) {
            static const QRegularExpression current("<S CURRENT=\"([^\"]*)\"/>");
            const QRegularExpressionMatch match = current.match(parser->getChanges(QString()));
            result = match.hasMatch() ? match.captured(1) : "-";
        }
        QCOMPARE(result, sent);
    }

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

    void valueChangeAndValidity()
    {
        const auto parser = SpecText::read("<A TYPE='EDITBOX' CURRENT='ok'/>");
        ConcreteElement* a = concrete(*parser, "A");
        QSignalSpy spy(a, &ConcreteElement::valueChanged);
        a->valueChange("ok");
        QCOMPARE(state(a) + QString::number(spy.count()), "ok|ok|ok|same|valid0");
        a->valueChange("not_ok");
        QCOMPARE(state(a) + spy.value(0).value(0).toString(), "not_ok|ok|ok|changed|invalidnot_ok");
        QCOMPARE(spy.count(), 1);
        a->setEnabled(false); // a disabled setting never blocks
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
        QCOMPARE(b->current() + spy.value(0).value(0).toString(), QString("bb"));
        QCOMPARE(a->current(), QString("5"));
        QVERIFY(parser->enumerateElements(acceptChanges, nullptr));
        QCOMPARE(a->initial() + a->objectName(), QString("55"));
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
        QCOMPARE(label->text(), QString("Unknown control type"));
        QCOMPARE(a.control(), label);
        panel.show();
        QSignalSpy spy(&a, &Element::visibleChanged);
        a.hide();
        a.setEnabled(false);
        QVERIFY(!label->isVisible() && !label->isEnabled());
        a.show();
        a.setEnabled(true);
        QVERIFY(label->isVisible() && label->isEnabled());
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>({{false}, {true}}));
        // A control destroyed elsewhere is forgotten, not left dangling.
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
