#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"
#include "Rows.h"

#include "elements/ListElement.h"
#include "elements/Parameter.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

namespace {

ListElement* list(SettingsParser& parser)
{
    return qobject_cast<ListElement*>(parser.findElement("L"));
}

QStringList visibleIds(ListElement* element)
{
    QStringList ids;
    element->iterateParameters(
        [](Parameter* parameter, void* data) {
            if (parameter->isVisible())
                static_cast<QStringList*>(data)->append(parameter->id());
        },
        &ids);
    return ids;
}

// What the control shows: the check state, the combo index or the checked radio button.
QString shownChoice(ListElement* element)
{
    if (auto* box = qobject_cast<QCheckBox*>(element->control()))
        return box->isChecked() ? "on" : "off";
    if (auto* combo = qobject_cast<QComboBox*>(element->control()))
        return QString::number(combo->currentIndex());
    const auto* checked = element->control()->findChild<QButtonGroup*>()->checkedButton();
    return checked ? checked->objectName() : QString("");
}

} // namespace

// Choice settings: parameters, lookups over visible ones, shown texts, the parameter filter,
// and the check box, radio group and combo box they build.
class TestListElement : public QObject
{
    Q_OBJECT

private slots:
    void disabledItems_data()
    {
        addRows({"disabled", "kept"}, {{"none", nullptr, "A B AB C"},
                                       {"two names", "A;B", "AB C"},
                                       {"empty pieces", ";;C;", "A B AB"},
                                       {"exact match only", "a;A B", "A B AB C"}});
    }
    void disabledItems()
    {
        const auto [disabled, kept] = texts<2>();
        const QString attribute =
            disabled.isNull() ? QString() : QStringLiteral(" DisabledItem='%1'").arg(disabled);
        const auto parser = SpecText::read(
            QStringLiteral("<L TYPE='COMBOBOX'%1><A/><B/><!-- c --><AB/><C/></L>").arg(attribute));
        QCOMPARE(visibleIds(list(*parser)).join(' '), kept);
        QCOMPARE(list(*parser)->parameters().size(), kept.count(' ') + 1);
    }

    void parameterTexts()
    {
        const auto parser = SpecText::read("<L TYPE='RADIOBUTTON'><A STRING='Alpha' "
                                           "Format='f'/><B STRING=''/><C/></L>");
        const ParameterList& parameters = list(*parser)->parameters();
        QCOMPARE(parameters.at(0)->title(), QString("Alpha"));
        QCOMPARE(parameters.at(0)->property("format").toString(), QString("f"));
        QCOMPARE(parameters.at(1)->title(), QString("B")); // an empty STRING falls back too
        QCOMPARE(parameters.at(2)->description(), QString("C"));
    }

    void lookupsSkipHidden()
    {
        const auto parser = SpecText::read("<L TYPE='COMBOBOX' CURRENT='C'><A/><B/><C/></L>");
        ListElement* element = list(*parser);
        QCOMPARE(element->findParameterIndex("C"), 2);
        element->parameters().at(1)->setVisible(false);
        QCOMPARE(element->findParameterIndex("C"), 1);
        QCOMPARE(element->findParameterIndex("B"), -1);
        QCOMPARE(element->findParameterIndex("c"), -1);
        QCOMPARE(element->parameterAt(1)->id(), QString("C"));
        QVERIFY(!element->parameterAt(2) && !element->parameterAt(-1));
        QVERIFY(!element->findParameter("B"));
        QCOMPARE(visibleIds(element), QStringList({"A", "C"}));
        // Rules start over from every parameter shown.
        QVERIFY(element->prepareConstraints());
        QCOMPARE(visibleIds(element), QStringList({"A", "B", "C"}));
    }

    void shownTexts_data()
    {
        addRows({"current", "factory", "text", "display"},
                {{"current", "B", "A", "Bee", "Bee"},
                 {"factory fallback", "Z", "A", "Ay", "Z"},
                 {"neither", "Z", "Y", "Unknown parameter", "Z"}});
    }
    void shownTexts()
    {
        const auto [current, factory, text, display] = texts<4>();
        const auto parser = SpecText::read(
            QStringLiteral("<L TYPE='COMBOBOX' CURRENT='%1' FACTORY='%2'><A STRING='Ay'/>"
                           "<B STRING='Bee'/></L>")
                .arg(current, factory));
        StderrCapture capture;
        QCOMPARE(list(*parser)->currentText(), text);
        QCOMPARE(capture.text().contains("WARNING: can't find current parameter description"),
                 current == "Z");
        if (current == "Z")
            QTest::ignoreMessage(QtWarningMsg, "ListElement 'L' has no parameter 'Z'");
        QCOMPARE(list(*parser)->displayValue(), display);
    }

    void filter_data()
    {
        addRows({"visible", "allowed", "after"}, // "-": no list at all
                {{"allowed exactly", "shown", "A4", "shown"},
                 {"inside a longer string", "shown", "x;A4;y", "shown"},
                 {"not allowed", "shown", "Letter", "hidden"},
                 {"case matters", "shown", "a4", "hidden"},
                 {"hidden stays hidden", "hidden", "A4", "hidden"},
                 {"no list shows", "hidden", "-", "shown"}});
    }
    void filter()
    {
        const auto [visible, allowed, after] = texts<3>();
        const auto parser = SpecText::read("<L TYPE='PAPERSIZE'><A4/></L>");
        Parameter* a4 = list(*parser)->parameters().first();
        a4->setVisible(visible == "shown");
        QStringList list{allowed};
        ListElement::filterParameter(a4, allowed == "-" ? nullptr : &list);
        QCOMPARE(QString(a4->isVisible() ? "shown" : "hidden"), after);
    }

    void controls_data()
    {
        // The check box is on only for the second parameter of the whole list.
        addRows(
            {"type", "attributes", "shown", "layout"}, // input class, caption, its alignment
            {{"check on", "CHECKBOX", "CURRENT='B'", "on", "QCheckBox - centre"},
             {"check unknown", "CHECKBOX", "CURRENT='X'", "off", "QCheckBox - centre"},
             {"radio current", "RADIOBUTTON", "CURRENT='B' FACTORY='A'", "B",
              "QGroupBox &Duplex top"},
             {"radio factory", "RADIOBUTTON", "CURRENT='X' FACTORY='A'", "A",
              "QGroupBox &Duplex top"},
             {"radio none", "RADIOBUTTON", "CURRENT='X' FACTORY='Y'", "", "QGroupBox &Duplex top"},
             {"combo current", "COMBOBOX", "CURRENT='B'", "1", "QComboBox &Duplex centre"},
             {"combo unknown", "COMBOBOX", "CURRENT='X'", "0", "QComboBox &Duplex centre"},
             {"paper", "PAPERSIZE", "CURRENT='B'", "1", "QComboBox &Duplex centre"}});
    }
    void controls()
    {
        const auto [type, attributes, shown, layout] = texts<4>();
        const auto parser = SpecText::read(
            QStringLiteral("<L TYPE='%1' STRING='Duplex' %2><A/><B/></L>").arg(type, attributes));
        QWidget panel;
        ListElement* element = list(*parser);
        QWidget* box = element->createControl(&panel);
        QWidget* input = element->control();
        QCOMPARE(input->accessibleName(), QString("Duplex"));
        auto* label = box->findChild<QLabel*>("label");
        QVERIFY(label->alignment() & Qt::AlignRight);
        QCOMPARE(QString("%1 %2 %3")
                     .arg(input->metaObject()->className(),
                          label->text().isEmpty() ? "-" : label->text(),
                          label->alignment() & Qt::AlignTop ? "top" : "centre"),
                 layout);
        if (!label->text().isEmpty())
            QCOMPARE(label->buddy(), input);
        QCOMPARE(shownChoice(element), shown);
        QCOMPARE(element->current(), attributes.section('\'', 1, 1));
    }

    void comboFollowsVisibleParameters()
    {
        const auto parser = SpecText::read("<L TYPE='COMBOBOX' CURRENT='C'><A/><B/><C/></L>");
        QWidget panel;
        ListElement* element = list(*parser);
        element->createControl(&panel);
        auto* combo = qobject_cast<QComboBox*>(element->control());
        QSignalSpy spy(element, &ConcreteElement::valueChanged);
        element->parameters().at(1)->setVisible(false);
        element->refreshControl();
        QCOMPARE(combo->count(), 2);
        QCOMPARE(combo->currentText(), QString("C"));
        QCOMPARE(spy.count(), 0);
        // Indexes count visible parameters only.
        panel.show();
        QTest::keyClick(combo, Qt::Key_Up);
        QCOMPARE(element->current(), QString("A"));
        QCOMPARE(spy.count(), 1);
    }
};

QTEST_MAIN(TestListElement)
#include "TestListElement.moc"
