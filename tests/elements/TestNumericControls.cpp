#include "../xml/SpecText.h"

#include "FloatElement.h"
#include "FloatSpinBox.h"
#include "NumericElement.h"
#include "SpinBox.h"

#include <QSignalSpy>
#include <QtTest>

// The spin box controls of integer and decimal settings: building them from the limits, edits
// with the keyboard, silent programmatic values, limit slots and their wiring.
class TestNumericControls : public QObject
{
    Q_OBJECT

private:
    static NumericElement* numeric(SettingsParser& parser)
    {
        return qobject_cast<NumericElement*>(parser.findElement("N"));
    }

private slots:
    void integerSpin_data();
    void integerSpin();
    void floatSpin_data();
    void floatSpin();
    void setControlValueIsSilent_data();
    void setControlValueIsSilent();
    void limitSlotsReachTheControl();
    void repeatedCreateKeepsOneConnection();
};

void TestNumericControls::integerSpin_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QList<int>>("shown");
    QTest::newRow("all given") << "MIN=\"1\" MAX=\"9\" STEP=\"2\" CURRENT=\"5\""
                               << QList<int>({1, 9, 2, 5});
    QTest::newRow("missing MIN counts as 0")
        << "MAX=\"9\" STEP=\"1\" CURRENT=\"3\"" << QList<int>({0, 9, 1, 3});
    QTest::newRow("no number") << "MIN=\"a\" MAX=\"20\" STEP=\"1\" CURRENT=\"x\""
                               << QList<int>({0, 20, 1, 0});
    QTest::newRow("missing STEP steps by one")
        << "MIN=\"0\" MAX=\"20\" CURRENT=\"4\"" << QList<int>({0, 20, 1, 4});
}

void TestNumericControls::integerSpin()
{
    QFETCH(QString, attributes);
    QFETCH(QList<int>, shown);
    const auto parser = SpecText::read(
        QStringLiteral("<N TYPE=\"INTEGER\" STRING=\"Copies\" %1/>").arg(attributes));
    QWidget panel;
    QWidget* box = numeric(*parser)->createControl(&panel);
    QCOMPARE(box->objectName(), QString("hbox"));
    auto* spin = qobject_cast<SpinBox*>(numeric(*parser)->control());
    QVERIFY(spin);
    QCOMPARE(QList<int>({spin->minimum(), spin->maximum(), spin->singleStep(), spin->value()}),
             shown);
    QCOMPARE(spin->accessibleName(), QString("Copies"));
}

void TestNumericControls::floatSpin_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QList<int>>("shown");
    QTest::addColumn<QString>("text");
    QTest::newRow("tenths, no STEP") << "MIN=\"0\" MAX=\"5\" DIGITS=\"1\" CURRENT=\"2.3\""
                                     << QList<int>({0, 50, 1, 23}) << "2.3";
    QTest::newRow("step given") << "MIN=\"1\" MAX=\"2\" STEP=\"0.25\" DIGITS=\"2\" CURRENT=\"1.5\""
                                << QList<int>({100, 200, 25, 150}) << "1.50";
    QTest::newRow("zero digits") << "MIN=\"0\" MAX=\"10\" DIGITS=\"0\" CURRENT=\"7\""
                                 << QList<int>({0, 10, 1, 7}) << "7.0";
    QTest::newRow("surplus decimals cut") << "MIN=\"0\" MAX=\"5\" DIGITS=\"1\" CURRENT=\"2.39\""
                                          << QList<int>({0, 50, 1, 23}) << "2.3";
}

void TestNumericControls::floatSpin()
{
    QFETCH(QString, attributes);
    QFETCH(QList<int>, shown);
    QFETCH(QString, text);
    const auto parser = SpecText::read(QStringLiteral("<N TYPE=\"FLOAT\" %1/>").arg(attributes));
    QWidget panel;
    numeric(*parser)->createControl(&panel);
    auto* spin = qobject_cast<FloatSpinBox*>(numeric(*parser)->control());
    QVERIFY(spin);
    QCOMPARE(QList<int>({spin->minimum(), spin->maximum(), spin->singleStep(), spin->value()}),
             shown);
    QCOMPARE(spin->text(), text);
}

void TestNumericControls::setControlValueIsSilent_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("integer") << "INTEGER"
                             << "7"
                             << "7";
    QTest::newRow("float") << "FLOAT"
                           << "1.5"
                           << "1.5";
}

void TestNumericControls::setControlValueIsSilent()
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QFETCH(QString, shown);
    const auto parser = SpecText::read(
        QStringLiteral("<N TYPE=\"%1\" MIN=\"0\" MAX=\"9\" DIGITS=\"1\" CURRENT=\"3\"/>")
            .arg(type));
    NumericElement* element = numeric(*parser);
    QWidget panel;
    element->createControl(&panel);
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    element->setControlValue(value);
    auto* spin = qobject_cast<SpinBox*>(element->control());
    QCOMPARE(spin->text(), shown);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(element->current(), QString("3"));
    // Still connected afterwards.
    panel.show();
    QTest::keyClick(spin, Qt::Key_Up);
    QCOMPARE(spy.count(), 1);
}

void TestNumericControls::limitSlotsReachTheControl()
{
    const auto parser =
        SpecText::read("<N TYPE=\"FLOAT\" MIN=\"0\" MAX=\"5\" DIGITS=\"1\" CURRENT=\"2.5\"/>");
    auto* element = qobject_cast<FloatElement*>(parser->findElement("N"));
    QWidget panel;
    element->createControl(&panel);
    auto* spin = qobject_cast<FloatSpinBox*>(element->control());
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    element->maxChange("2");
    QCOMPARE(spin->maximum(), 20);
    QCOMPARE(spin->value(), 20);
    element->minChange("1");
    QCOMPARE(spin->minimum(), 10);
    element->digitsChange("2");
    QCOMPARE(QList<int>({spin->minimum(), spin->maximum(), spin->singleStep()}),
             QList<int>({100, 200, 1}));
    element->stepChange("0.5");
    QCOMPARE(spin->singleStep(), 50);
    // The value is pulled back when validated, not by the limit change.
    QCOMPARE(spy.count(), 0);
    QCOMPARE(element->current(), QString("2.5"));

    const auto integer =
        SpecText::read("<N TYPE=\"INTEGER\" MIN=\"0\" MAX=\"50\" STEP=\"1\" CURRENT=\"5\"/>");
    NumericElement* number = numeric(*integer);
    number->createControl(&panel);
    emit number->maxChanged("8");
    QCOMPARE(qobject_cast<SpinBox*>(number->control())->maximum(), 8);
    QCOMPARE(number->max(), QString("8"));
}

void TestNumericControls::repeatedCreateKeepsOneConnection()
{
    const auto parser =
        SpecText::read("<N TYPE=\"INTEGER\" MIN=\"0\" MAX=\"50\" STEP=\"1\" CURRENT=\"5\"/>");
    NumericElement* element = numeric(*parser);
    QWidget panel;
    for (int i = 0; i < 3; ++i) {
        element->createControl(&panel);
        element->deleteControl();
        QCOMPARE(panel.findChildren<QWidget*>().size(), 0);
    }
    QVERIFY(!element->control());
    // Limit changes without a control are stored and go nowhere.
    element->maxChange("30");
    element->createControl(&panel);
    QCOMPARE(qobject_cast<SpinBox*>(element->control())->maximum(), 30);
    QSignalSpy limits(element, &BoundaryElement::maxChanged);
    element->maxChange("31");
    QCOMPARE(limits.count(), 1);
}

QTEST_MAIN(TestNumericControls)
#include "TestNumericControls.moc"
