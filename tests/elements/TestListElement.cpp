#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"

#include "ListElement.h"
#include "Log.h"
#include "PaperSizeParameter.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

// Choice settings: parameters, lookups over visible ones, shown texts, the parameter filter
// and choices made in a control.
class TestListElement : public QObject
{
    Q_OBJECT

private:
    static ListElement* list(SettingsParser& parser, const QString& id = "L")
    {
        return qobject_cast<ListElement*>(parser.findElement(id));
    }
    static QStringList ids(const ListElement* element);
    static void countVisible(Parameter* parameter, void* data);

private slots:
    void disabledItems_data();
    void disabledItems();
    void parameterTexts();
    void lookupsSkipHidden();
    void displayValue();
    void currentText_data();
    void currentText();
    void paperSizeParameters();
    void filter_data();
    void filter();
    void prepareConstraintsShowsAll();
    void comboChoice();
    void radioChoice();
    void setControlValueBypassesOnClick();
};

QStringList TestListElement::ids(const ListElement* element)
{
    QStringList out;
    for (const Parameter* parameter : element->parameters())
        out.append(parameter->id());
    return out;
}

void TestListElement::countVisible(Parameter* parameter, void* data)
{
    if (parameter->isVisible())
        ++*static_cast<int*>(data);
}

void TestListElement::disabledItems_data()
{
    QTest::addColumn<QString>("disabled");
    QTest::addColumn<QStringList>("kept");
    QTest::newRow("none") << QString() << QStringList({"A", "B", "AB", "C"});
    QTest::newRow("two names") << "A;B" << QStringList({"AB", "C"});
    QTest::newRow("empty pieces") << ";;C;" << QStringList({"A", "B", "AB"});
    QTest::newRow("exact match only") << "a;A B" << QStringList({"A", "B", "AB", "C"});
}

void TestListElement::disabledItems()
{
    QFETCH(QString, disabled);
    QFETCH(QStringList, kept);
    const QString attribute =
        disabled.isNull() ? QString() : QStringLiteral(" DisabledItem=\"%1\"").arg(disabled);
    logLevel = 10;
    StderrCapture capture;
    const auto parser = SpecText::read(
        QStringLiteral("<L TYPE=\"COMBOBOX\"%1><A/><B/><!-- c --><AB/><C/></L>").arg(attribute));
    const QByteArray log = capture.text();
    logLevel = kDefaultLogLevel;
    QCOMPARE(ids(list(*parser)), kept);
    QCOMPARE(log.count("skipping disabled parameter"), 4 - kept.size());
}

void TestListElement::parameterTexts()
{
    const auto parser = SpecText::read("<L TYPE=\"RADIOBUTTON\"><A STRING=\"Alpha\" Format=\"f\"/>"
                                       "<B STRING=\"\"/><C/></L>");
    const ParameterList& parameters = list(*parser)->parameters();
    QCOMPARE(parameters.at(0)->title(), QString("Alpha"));
    QCOMPARE(parameters.at(0)->property("format").toString(), QString("f"));
    QCOMPARE(parameters.at(1)->string(), QString(""));
    QCOMPARE(parameters.at(1)->title(), QString("B"));
    QCOMPARE(parameters.at(2)->description(), QString("C"));
    QVERIFY(parameters.at(2)->format().isNull());
    QVERIFY(parameters.at(2)->property("visible").toBool());
    QVERIFY(!qobject_cast<PaperSizeParameter*>(parameters.at(0)));
}

void TestListElement::lookupsSkipHidden()
{
    const auto parser = SpecText::read("<L TYPE=\"COMBOBOX\" CURRENT=\"C\"><A/><B/><C/></L>");
    ListElement* element = list(*parser);
    QCOMPARE(element->findParameterIndex("C"), 2);
    element->parameters().at(1)->setVisible(false);
    QCOMPARE(element->findParameterIndex("C"), 1);
    QCOMPARE(element->findParameterIndex("B"), -1);
    QCOMPARE(element->findParameterIndex("c"), -1);
    QCOMPARE(element->parameterAt(1)->id(), QString("C"));
    QVERIFY(!element->parameterAt(2));
    QVERIFY(!element->parameterAt(-1));
    QVERIFY(!element->findParameter("B"));
    QCOMPARE(element->findParameter("A")->id(), QString("A"));
    int visible = 0;
    element->iterateParameters(countVisible, &visible);
    QCOMPARE(visible, 2);
}

void TestListElement::displayValue()
{
    const auto parser =
        SpecText::read("<L TYPE=\"COMBOBOX\" CURRENT=\"B\"><A/><B STRING=\"Bee\"/></L>");
    ListElement* element = list(*parser);
    QCOMPARE(element->displayValue(), QString("Bee"));
    element->valueChange("Z");
    QTest::ignoreMessage(QtWarningMsg, "ListElement 'L' has no parameter 'Z'");
    QCOMPARE(element->displayValue(), QString("Z"));
}

void TestListElement::currentText_data()
{
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("factory");
    QTest::addColumn<QString>("text");
    QTest::newRow("current") << "B"
                             << "A"
                             << "Bee";
    QTest::newRow("factory fallback") << "Z"
                                      << "A"
                                      << "Ay";
    QTest::newRow("neither") << "Z"
                             << "Y"
                             << "Unknown parameter";
}

void TestListElement::currentText()
{
    QFETCH(QString, current);
    QFETCH(QString, factory);
    QFETCH(QString, text);
    const auto parser = SpecText::read(
        QStringLiteral("<L TYPE=\"COMBOBOX\" CURRENT=\"%1\" FACTORY=\"%2\"><A STRING=\"Ay\"/>"
                       "<B STRING=\"Bee\"/></L>")
            .arg(current, factory));
    StderrCapture capture;
    QCOMPARE(list(*parser)->currentText(), text);
    QCOMPARE(capture.text().contains("WARNING: can't find current parameter description"),
             current == "Z");
}

void TestListElement::paperSizeParameters()
{
    const auto parser = SpecText::read(
        "<L TYPE=\"PAPERSIZE\" CURRENT=\"A4\"><A4 MAXTOPMARGIN=\"12\" MAXLEFTMARGIN=\"8\" "
        "LINESPORTRAIT=\"64\" LINESLANDSCAPE=\"48\"/><Letter LINESPORTRAIT=\"\"/></L>");
    const ParameterList& parameters = list(*parser)->parameters();
    const auto* a4 = qobject_cast<PaperSizeParameter*>(parameters.at(0));
    const auto* letter = qobject_cast<PaperSizeParameter*>(parameters.at(1));
    QVERIFY(a4 && letter);
    QCOMPARE(a4->maxtopmargin(), QString("12"));
    QCOMPARE(a4->property("maxleftmargin").toString(), QString("8"));
    QCOMPARE(a4->linesportrait(), QString("64"));
    QCOMPARE(a4->lineslandscape(), QString("48"));
    QVERIFY(letter->maxtopmargin().isNull());
    QVERIFY(letter->lineslandscape().isNull());
    QCOMPARE(letter->linesportrait(), QString(""));
}

void TestListElement::filter_data()
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

void TestListElement::filter()
{
    QFETCH(bool, visible);
    QFETCH(bool, withList);
    QFETCH(QStringList, allowed);
    QFETCH(bool, after);
    const auto parser = SpecText::read("<L TYPE=\"PAPERSIZE\"><A4/></L>");
    Parameter* a4 = list(*parser)->parameters().first();
    a4->setVisible(visible);
    ListElement::filterParameter(a4, withList ? &allowed : nullptr);
    QCOMPARE(a4->isVisible(), after);
}

void TestListElement::prepareConstraintsShowsAll()
{
    const auto parser = SpecText::read("<L TYPE=\"COMBOBOX\"><A/><B/></L>");
    ListElement* element = list(*parser);
    for (Parameter* parameter : element->parameters())
        parameter->setVisible(false);
    QVERIFY(element->prepareConstraints());
    int visible = 0;
    element->iterateParameters(countVisible, &visible);
    QCOMPARE(visible, 2);
}

void TestListElement::comboChoice()
{
    const auto parser =
        SpecText::read("<L TYPE=\"COMBOBOX\" CURRENT=\"A\" FACTORY=\"B\"><A/><B/><C/></L>");
    ListElement* element = list(*parser);
    element->parameters().at(1)->setVisible(false);
    // Owned by the element from setControl() on, as a control it created would be.
    QComboBox& combo = *new QComboBox;
    combo.addItems({"A", "C"});
    element->setControl(&combo);
    connect(&combo, SIGNAL(activated(int)), element, SLOT(onClick()));
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Down);
    QCOMPARE(element->current(), QString("C"));
    QCOMPARE(spy.count(), 1);
    logLevel = 10;
    StderrCapture capture;
    QMetaObject::invokeMethod(element, "onClick");
    const QByteArray log = capture.text();
    logLevel = kDefaultLogLevel;
    // The same choice again: announced, but no dependency check.
    QCOMPARE(spy.count(), 2);
    QVERIFY(!log.contains("checkDependencies("));
}

void TestListElement::radioChoice()
{
    const auto parser = SpecText::read("<L TYPE=\"RADIOBUTTON\" CURRENT=\"A\"><A/><B/></L>");
    ListElement* element = list(*parser);
    QGroupBox& box = *new QGroupBox;
    auto* layout = new QVBoxLayout(&box);
    auto* group = new QButtonGroup(&box);
    for (const Parameter* parameter : element->parameters()) {
        auto* button = new QRadioButton(parameter->title(), &box);
        button->setObjectName(parameter->id());
        layout->addWidget(button);
        group->addButton(button, qChecksum(parameter->id().toUtf8()));
    }
    element->setControl(&box);
    connect(group, SIGNAL(idClicked(int)), element, SLOT(onClick()));
    box.show();
    QTest::mouseClick(group->button(qChecksum(QByteArray("B"))), Qt::LeftButton);
    QCOMPARE(element->current(), QString("B"));
    element->setControlValue("A");
    QVERIFY(group->button(qChecksum(QByteArray("A")))->isChecked());
    QCOMPARE(element->current(), QString("B"));
}

void TestListElement::setControlValueBypassesOnClick()
{
    const auto parser = SpecText::read("<L TYPE=\"COMBOBOX\" CURRENT=\"A\"><A/><B/></L>");
    ListElement* element = list(*parser);
    // Owned by the element from setControl() on, as a control it created would be.
    QComboBox& combo = *new QComboBox;
    combo.addItems({"A", "B"});
    element->setControl(&combo);
    connect(&combo, SIGNAL(activated(int)), element, SLOT(onClick()));
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    element->setControlValue("B");
    QCOMPARE(combo.currentIndex(), 1);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(element->current(), QString("A"));
    // Still wired once afterwards.
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up);
    QCOMPARE(element->current(), QString("A"));
    QCOMPARE(spy.count(), 1);
}

QTEST_MAIN(TestListElement)
#include "TestListElement.moc"
