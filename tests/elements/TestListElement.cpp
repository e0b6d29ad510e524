#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"

#include "ListElement.h"
#include "Parameter.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
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

QString S(const char* text)
{
    return QString::fromUtf8(text);
}

QRadioButton* radio(QWidget* panel, const char* id)
{
    return panel->findChild<QRadioButton*>(QString::fromLatin1(id));
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
        QTest::addColumn<QString>("disabled");
        QTest::addColumn<QStringList>("kept");
        QTest::newRow("none") << QString() << QStringList({"A", "B", "AB", "C"});
        QTest::newRow("two names") << "A;B" << QStringList({"AB", "C"});
        QTest::newRow("empty pieces") << ";;C;" << QStringList({"A", "B", "AB"});
        QTest::newRow("exact match only") << "a;A B" << QStringList({"A", "B", "AB", "C"});
    }
    void disabledItems()
    {
        QFETCH(QString, disabled);
        QFETCH(QStringList, kept);
        const QString attribute =
            disabled.isNull() ? QString() : QStringLiteral(" DisabledItem='%1'").arg(disabled);
        const auto parser = SpecText::read(
            QStringLiteral("<L TYPE='COMBOBOX'%1><A/><B/><!-- c --><AB/><C/></L>").arg(attribute));
        QCOMPARE(visibleIds(list(*parser)), kept);
        QCOMPARE(list(*parser)->parameters().size(), kept.size());
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
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("factory");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("display");
        QTest::newRow("current") << "B" << QString("A") << "Bee" << QString("Bee");
        QTest::newRow("factory fallback") << "Z" << QString("A") << "Ay" << QString("Z");
        QTest::newRow("neither") << "Z" << QString("Y") << "Unknown parameter" << QString("Z");
    }
    void shownTexts()
    {
        QFETCH(QString, current);
        QFETCH(QString, factory);
        QFETCH(QString, text);
        QFETCH(QString, display);
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
        QTest::addColumn<bool>("visible");
        QTest::addColumn<bool>("withList");
        QTest::addColumn<QStringList>("allowed");
        QTest::addColumn<bool>("after");
        QTest::newRow("allowed exactly") << true << true << QStringList({"A4"}) << true;
        QTest::newRow("inside a longer string") << true << true << QStringList({"x;A4;y"}) << true;
        QTest::newRow("not allowed") << true << true << QStringList({"Letter"}) << false;
        QTest::newRow("case matters") << true << true << QStringList({"a4"}) << false;
        QTest::newRow("hidden stays hidden") << false << true << QStringList({"A4"}) << false;
        QTest::newRow("no list shows") << false << false << QStringList() << true;
    }
    void filter()
    {
        QFETCH(bool, visible);
        QFETCH(bool, withList);
        QFETCH(QStringList, allowed);
        QFETCH(bool, after);
        const auto parser = SpecText::read("<L TYPE='PAPERSIZE'><A4/></L>");
        Parameter* a4 = list(*parser)->parameters().first();
        a4->setVisible(visible);
        ListElement::filterParameter(a4, withList ? &allowed : nullptr);
        QCOMPARE(a4->isVisible(), after);
    }

    void controls_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("attributes");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("layout"); // input class, caption, caption alignment
        const QString check = "CHECKBOX", radio = "RADIOBUTTON", combo = "COMBOBOX";
        // The check box is on only for the second visible parameter.
        QTest::newRow("check on") << check << "CURRENT='B'" << S("on") << "QCheckBox - centre";
        QTest::newRow("check unknown")
            << check << "CURRENT='X'" << S("off") << "QCheckBox - centre";
        QTest::newRow("radio current")
            << radio << "CURRENT='B' FACTORY='A'" << S("B") << "QGroupBox &Duplex top";
        QTest::newRow("radio factory")
            << radio << "CURRENT='X' FACTORY='A'" << S("A") << "QGroupBox &Duplex top";
        QTest::newRow("radio none")
            << radio << "CURRENT='X' FACTORY='Y'" << S("") << "QGroupBox &Duplex top";
        QTest::newRow("combo current")
            << combo << "CURRENT='B'" << S("1") << "QComboBox &Duplex centre";
        QTest::newRow("combo unknown")
            << combo << "CURRENT='X'" << S("0") << "QComboBox &Duplex centre";
        QTest::newRow("paper") << S("PAPERSIZE") << "CURRENT='B'" << S("1")
                               << "QComboBox &Duplex centre";
    }
    void controls()
    {
        QFETCH(QString, type);
        QFETCH(QString, attributes);
        QFETCH(QString, shown);
        QFETCH(QString, layout);
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

    void setControlValueIsSilent_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("shown"); // B
        QTest::newRow("check box") << "CHECKBOX" << QString("on");
        QTest::newRow("radio") << "RADIOBUTTON" << QString("B");
        QTest::newRow("combo") << "COMBOBOX" << QString("1");
    }
    void setControlValueIsSilent()
    {
        QFETCH(QString, type);
        QFETCH(QString, shown);
        const auto parser =
            SpecText::read(QStringLiteral("<L TYPE='%1' CURRENT='A'><A/><B/></L>").arg(type));
        QWidget panel;
        ListElement* element = list(*parser);
        element->createControl(&panel);
        panel.show();
        QSignalSpy spy(element, &ConcreteElement::valueChanged);
        element->setControlValue("B");
        QCOMPARE(spy.count(), 0);
        QCOMPARE(element->current(), QString("A"));
        QCOMPARE(shownChoice(element), shown);
        // The control still reports the user's next choice, once.
        if (auto* box = qobject_cast<QCheckBox*>(element->control()))
            QTest::mouseClick(box, Qt::LeftButton);
        else if (auto* combo = qobject_cast<QComboBox*>(element->control()))
            QTest::keyClick(combo, Qt::Key_Up);
        else
            QTest::mouseClick(radio(&panel, "A"), Qt::LeftButton);
        QCOMPARE(element->current(), QString("A"));
        QCOMPARE(spy.count(), 1);
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
