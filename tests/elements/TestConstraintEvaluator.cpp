#include "../xml/SpecText.h"
#include "ReceiverProbe.h"
#include "Rows.h"

#include "elements/ConstraintEvaluator.h"
#include "elements/ControlBox.h"
#include "elements/ListElement.h"
#include "elements/NumericElement.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Read with its rules, its signals reaching a probe, evaluated once as the dialog does.
struct Tree
{
    std::unique_ptr<SettingsParser> parser;
    ReceiverProbe probe;

    Tree(const QString& settings, const QString& rules)
        : parser(SpecText::read(settings, "PrinterSettingsInfo",
                                "<Dependencies>" + rules + "</Dependencies>"))
    {
        parser->readDependencies();
        parser->root()->connectSignals(&probe);
        ConstraintEvaluator::evaluateAll(parser->root());
    }
    template <class T = ConcreteElement>
    T* get(const QString& id) const
    {
        return qobject_cast<T*>(parser->findElement(id));
    }
    bool hidden() const { return probe.calls.filter("Visibility").join(' ').endsWith(":false"); }
};

struct Xml
{
    static QString on(const QString& id, const QString& rules) { return tag(id, rules); }
    static QString rule(const QString& kind, const QString& body) { return tag(kind, body); }
    static QString onT(const QString& kind, const QString& b) { return on("T", tag(kind, b)); }
    static QString onT2(const QString& k1, const QString& b1, const QString& k2, const QString& b2)
    {
        return on("T", tag(k1, b1) + tag(k2, b2));
    }
    static QString tag(const QString& tag, const QString& body)
    {
        return QString("<%1>%2</%3>").arg(tag, body, tag.section(' ', 0, 0));
    }
    static QString cond(const QString& id, const QString& value, const QString& is = "EQUAL")
    {
        return QString("<Condition><%1 CURRENT='%2' IS='%3'/></Condition>").arg(id, value, is);
    }
    static QString min(const QString& value)
    {
        return "<Attributes><Attribute NAME='min' VALUE='" + value + "'/></Attributes>";
    }
};

const QString kSettings = "<A TYPE='EDITBOX' CURRENT='%1'/><T TYPE='EDITBOX'/>"
                          "<B TYPE='INTEGER' CURRENT='1' MIN='0' MAX='10'/>";
const QString kOn = Xml::cond("A", "on");
const QString kOff = Xml::cond("A", "off");

} // namespace

// Rules between settings at run time: when they hold, their effects, limits, cycles.
class TestConstraintEvaluator : public QObject, private Xml
{
    Q_OBJECT

    QTemporaryDir dir;

private slots:
    void initTestCase() { QVERIFY(QDir::setCurrent(dir.path())); }
    // Each row: the rules, then A's value when read > after the change: T's state, B's minimum
    // and value.
    void effects_data()
    {
        columns<QString, QString>({"rules", "scenario"});
        const auto row = [](const char* name, const QString& rules, const char* scenario) {
            QTest::newRow(name) << rules << QString(scenario);
        };
        const QString all = "<Condition><A CURRENT='on'/><B CURRENT='1' IS='GREAT'/></Condition>";
        row("disable holds", onT("Disable", kOn), "off>on: disabled shown 0 1");
        row("disable fails", onT("Disable", kOn), "on>off: enabled shown 0 1");
        row("enable holds", onT("Enable", kOn), "off>on: enabled shown 0 1");
        row("hide holds", onT("Hide", kOn), "off>on: enabled hidden 0 1");
        row("hidden when read", onT("Hide", kOn), "on>on: enabled hidden 0 1");
        row("hide fails", onT("Hide", kOn), "on>off: enabled shown 0 1");
        row("no condition holds", onT("Disable", ""), ">: disabled shown 0 1");
        row("any group", onT("Disable", kOff + kOn), "x>on: disabled shown 0 1");
        row("all of a group", onT("Disable", all), "off>on: enabled shown 0 1");
        row("missing setting", onT("Enable", cond("No", "")), ">: disabled shown 0 1");
        row("as numbers", onT("Disable", cond("B", "09", "LESS")), ">: disabled shown 0 1");
        row("equal as text", onT("Disable", cond("B", "1.0")), ">: enabled shown 0 1");
        row("unknown word", onT("Disable", cond("B", "1", "equal")), ">: enabled shown 0 1");
        row("last holding wins", onT2("Disable", kOn, "Enable", kOn), "off>on: enabled shown 0 1");
        row("holding wins", onT2("Enable", kOn, "Enable", kOff), "off>on: enabled shown 0 1");
        row("none: last", onT2("Disable", kOff, "Enable", kOff), "off>on: disabled shown 0 1");
        row("any hide", onT2("Hide", kOff, "Hide", kOn), "off>on: enabled hidden 0 1");
        row("assigns", on("B", rule("Constraint", kOn + min("2"))), "off>on: enabled shown 2 2");
        // Held when read, it pulled the value up; released, the value stays.
        row("released", on("B", rule("Constraint", kOff + min("2"))), "off>on: enabled shown 0 2");
        row("last assignment",
            on("B", rule("Constraint", kOn + min("2")) + rule("Constraint", kOn + min("3"))),
            "off>on: enabled shown 3 3");
    }

    void effects()
    {
        const auto [rules, scenario] = texts<2>();
        const QString change = scenario.section(": ", 0, 0);
        Tree tree(kSettings.arg(change.section('>', 0, 0)), rules);
        auto* t = tree.get("T");
        QWidget panel;
        t->createControl(&panel);
        tree.get("A")->valueChange(change.section('>', 1));
        QCOMPARE(t->control()->isEnabled(), t->isEnabled());
        QCOMPARE(!t->control()->isVisibleTo(&panel), tree.hidden());
        const QLabel* caption = ControlBox::label(ControlBox::boxOf(t->control()));
        QVERIFY(caption);
        QCOMPARE(!caption->isVisibleTo(&panel), tree.hidden()); // no orphaned caption
        QCOMPARE(QString("%1 %2 %3 %4")
                     .arg(t->isEnabled() ? "enabled" : "disabled",
                          tree.hidden() ? "hidden" : "shown", tree.get<NumericElement>("B")->min(),
                          tree.get("B")->current()),
                 scenario.section(": ", 1));
    }

    void selfChecked_data()
    {
        columns<QString, bool>({"disable", "applied"});
        QTest::newRow("self-checked") << "Disable" << true;
        QTest::newRow("FALSE") << "Disable SELFCHECKED='false'" << false;
    }

    void selfChecked()
    {
        const auto [disable, applied] = fetch<QString, bool>();
        for (const bool viaControl : {false, true}) {
            Tree tree(kSettings.arg("off"), onT(disable, kOn));
            // The change does not reach the dependants: only the element's own check can see it.
            tree.get("A")->setCurrent("on");
            QWidget panel;
            QVERIFY(viaControl ? tree.get("T")->createControl(&panel) != nullptr
                               : tree.get("T")->isValid());
            QCOMPARE(tree.get("T")->isEnabled(), !applied);
        }
    }

    void valueList_data()
    {
        const auto only = [](const QString& values) {
            return rule("Constraint", cond("M", "Envelope") + "<Value>" + values + "</Value>");
        };
        columns<QString, QStringList>({"rules", "allowed"});
        QTest::newRow("one list") << only("<DL/><C5/>") << QStringList({"DL", "C5"});
        QTest::newRow("lists intersect")
            << only("<DL/><C5/>") + only("<C5/><A4/>") << QStringList({"C5"});
        QTest::newRow("choice still allowed") << only("<A4/><DL/>") << QStringList({"A4", "DL"});
    }

    void valueList()
    {
        const auto [rules, allowed] = fetch<QString, QStringList>();
        Tree tree("<M TYPE='COMBOBOX' CURRENT='Plain'><Plain/><Envelope/></M>"
                  "<P TYPE='COMBOBOX' CURRENT='A4'><A4/><Letter/><DL/><C5/></P>",
                  on("P", rules));
        auto* p = tree.get<ListElement>("P");
        QWidget panel;
        QWidget* media = tree.get("M")->createControl(&panel)->findChild<QComboBox*>();
        auto* combo = p->createControl(&panel)->findChild<QComboBox*>();
        QSignalSpy changed(p, &ConcreteElement::valueChanged);
        QTest::keyClick(media, Qt::Key_Down);
        QCOMPARE(combo->count(), int(allowed.size()));
        for (int i = 0; i < combo->count(); ++i)
            QCOMPARE(combo->itemText(i), allowed.at(i));
        // A choice no longer allowed moves to the first allowed one, and says so.
        QCOMPARE(p->current(), allowed.contains("A4") ? "A4" : allowed.first());
        QCOMPARE(combo->currentText(), p->current());
        QCOMPARE(int(changed.size()), allowed.contains("A4") ? 0 : 1);
        QTest::keyClick(media, Qt::Key_Up);
        QCOMPARE(combo->count(), 4);
        QCOMPARE(combo->currentText(), p->current());
    }

    void referencedLimit()
    {
        Tree tree("<PaperSize TYPE='PAPERSIZE' CURRENT='A4'><A4 MAXTOPMARGIN='28'/>"
                  "<Executive MAXTOPMARGIN='20'/><Custom/></PaperSize>"
                  "<TopMargin TYPE='INTEGER' CURRENT='27' MIN='0' MAX='40'/>",
                  on("TopMargin", rule("Constraint", "<Attributes><RefAttribute NAME='max' "
                                                     "VALUE='PaperSize#maxtopmargin' REF='TRUE'/>"
                                                     "</Attributes>")));
        auto* margin = tree.get<NumericElement>("TopMargin");
        QWidget panel;
        auto* spin = margin->createControl(&panel)->findChild<QSpinBox*>();
        QCOMPARE(spin->maximum(), 28);
        QSignalSpy changed(margin, &ConcreteElement::valueChanged);
        tree.get("PaperSize")->valueChange("Executive");
        QCOMPARE(spin->maximum(), 20);
        QCOMPARE(spin->value(), 20);
        QCOMPARE(changed.value(0).value(0).toString(), QString("20"));
        // A paper size without the limit gives the setting its own back.
        tree.get("PaperSize")->valueChange("Custom");
        QCOMPARE(spin->maximum(), 40);
        QCOMPARE(margin->current(), QString("20"));
    }

    void cycles()
    {
        const QString list = "<%1 TYPE='COMBOBOX' CURRENT='a'><a/><b/></%1>";
        // S at b allows Y only b; Y at b allows S only a, which would allow Y b again.
        Tree tree(list.arg("S") + list.arg("Y"),
                  on("Y", rule("Constraint", cond("S", "b") + "<Value><b/></Value>")) +
                      on("S", rule("Constraint", cond("Y", "b") + "<Value><a/></Value>")));
        tree.get("S")->valueChange("b");
        QCOMPARE(tree.get("S")->current() + tree.get("Y")->current(), QString("ab"));
    }
};

QTEST_MAIN(TestConstraintEvaluator)
#include "TestConstraintEvaluator.moc"
