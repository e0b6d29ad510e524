#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"
#include "Rows.h"

#include "elements/DoubleValidator.h"
#include "elements/FloatElement.h"
#include "elements/FloatSpinBox.h"
#include "elements/IntValidator.h"
#include "elements/SliderElement.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QtTest>

namespace {

NumericElement* numeric(SettingsParser& parser)
{
    return qobject_cast<NumericElement*>(parser.findElement("N"));
}

// "minimum..maximum by step: value 'text'", in the spin box's own integer steps.
QString spinState(QWidget* control)
{
    const auto* spin = qobject_cast<QSpinBox*>(control);
    return QString("%1..%2 by %3: %4 '%5'")
        .arg(spin->minimum())
        .arg(spin->maximum())
        .arg(spin->singleStep())
        .arg(spin->value())
        .arg(spin->text());
}

} // namespace

// The number kinds: limits and clamping, limit changes, colour marks, the spin boxes and slider
// they build, and the validators' fixups, which take out-of-range numbers to the nearer limit
// and cut surplus decimals.
class TestNumericElement : public QObject
{
    Q_OBJECT

private slots:
    void clamping_data()
    {
        addRows({"attributes", "after"},
                {{"above max", "INTEGER' CURRENT='120' MIN='0' MAX='100'", "100"},
                 {"below min", "INTEGER' CURRENT='3' MIN='5' MAX='100'", "5"},
                 {"inside", "INTEGER' CURRENT='50' MIN='0' MAX='100'", "50"},
                 {"at the limits", "INTEGER' CURRENT='100' MIN='100' MAX='100'", "100"},
                 {"missing MIN is no limit", "INTEGER' CURRENT='-1' MAX='10'", "-1"},
                 {"MIN with decimals rounds inward", "INTEGER' CURRENT='1' MIN='1.5'", "2"},
                 {"slider not clamped", "SLIDER' CURRENT='500' MIN='0' MAX='100'", "500"},
                 {"float kept", "FLOAT' CURRENT=' 3.5 ' MIN='0.5' MAX='2.5'", " 3.5 "}});
    }
    void clamping()
    {
        const auto [attributes, after] = texts<2>();
        const auto parser = SpecText::read(QString("<N TYPE='%1/>").arg(attributes));
        QSignalSpy spy(numeric(*parser), &ConcreteElement::valueChanged);
        QVERIFY(numeric(*parser)->isValid());
        QCOMPARE(numeric(*parser)->current(), after);
        const bool clamped = after != attributes.section('\'', 2, 2);
        QCOMPARE(spy.count(), clamped ? 1 : 0);
        if (clamped)
            QCOMPARE(spy.at(0).at(0).toString(), after);
    }

    void spinBoxes_data()
    {
        addRows(
            {"attributes", "shown"},
            {{"all given", "INTEGER' MIN='1' MAX='9' STEP='2' CURRENT='5'", "1..9 by 2: 5 '5'"},
             {"missing MIN and STEP", "INTEGER' MAX='9' CURRENT='3'", "-2147483648..9 by 1: 3 '3'"},
             {"no number", "INTEGER' MIN='a' MAX='20' CURRENT='x'", "-2147483648..20 by 1: 0 '0'"},
             {"tenths, no STEP", "FLOAT' MIN='0' MAX='5' DIGITS='1' CURRENT='2.3'",
              "0..50 by 1: 23 '2.3'"},
             {"step given", "FLOAT' MIN='1' MAX='2' STEP='0.25' DIGITS='2' CURRENT='1.5'",
              "100..200 by 25: 150 '1.50'"},
             {"zero digits", "FLOAT' MIN='0' MAX='10' DIGITS='0' CURRENT='7'",
              "0..10 by 1: 7 '7.0'"},
             {"surplus decimals cut", "FLOAT' MIN='0' MAX='5' DIGITS='1' CURRENT='2.39'",
              "0..50 by 1: 23 '2.3'"}});
    }
    void spinBoxes()
    {
        const auto [attributes, shown] = texts<2>();
        const auto parser =
            SpecText::read(QString("<N STRING='Copies' TYPE='%1/>").arg(attributes));
        QWidget panel;
        numeric(*parser)->createControl(&panel);
        QCOMPARE(spinState(numeric(*parser)->control()), shown);
        QCOMPARE(numeric(*parser)->control()->accessibleName(), QString("Copies"));
    }

    void limitSlotsReachTheControl()
    {
        const auto parser =
            SpecText::read("<N TYPE='FLOAT' MIN='0' MAX='5' DIGITS='1' CURRENT='2.5'/>");
        auto* element = qobject_cast<FloatElement*>(numeric(*parser));
        QWidget panel;
        // Limit changes without a control are kept for the next one.
        element->maxChange("4");
        element->createControl(&panel);
        QCOMPARE(spinState(element->control()), QString("0..40 by 1: 25 '2.5'"));
        QSignalSpy spy(element, &ConcreteElement::valueChanged);
        QSignalSpy limits(element, &BoundaryElement::maxChanged);
        element->maxChange("2");
        element->maxChange("2");
        QCOMPARE(limits.count(), 1); // announced on a change only
        QCOMPARE(spinState(element->control()), QString("0..20 by 1: 20 '2.0'"));
        element->minChange("1");
        element->digitsChange("2");
        QCOMPARE(spinState(element->control()), QString("100..200 by 1: 200 '2.00'"));
        element->stepChange("0.5");
        QCOMPARE(spinState(element->control()), QString("100..200 by 50: 200 '2.00'"));
        // The value is pulled back when validated, not by the limit change.
        QCOMPARE(spy.count(), 0);
        QCOMPARE(element->current(), QString("2.5"));
    }

    void sliderLabels()
    {
        const auto parser = SpecText::read("<N TYPE='SLIDER' STRING='Darkness' MIN='-5' "
                                           "MAX='5' STEP='1' CURRENT='0'/>");
        NumericElement* element = numeric(*parser);
        QWidget panel;
        QWidget* box = element->createControl(&panel);
        const auto text = [box](const char* name) { return box->findChild<QLabel*>(name)->text(); };
        QCOMPARE(text("minusLabel") + text("valueLabel") + text("plusLabel"), QString("-505"));
        QCOMPARE(box->findChild<QLabel*>("label")->buddy(), element->control());
        panel.show();
        QTest::keyClick(element->control(), Qt::Key_End);
        QCOMPARE(text("valueLabel"), element->current());
        QCOMPARE(element->current(), QString("5"));
        element->minChange("-2");
        QCOMPARE(text("minusLabel"), QString("-2"));
        QCOMPARE(qobject_cast<QSlider*>(element->control())->maximum(), 7);
    }

    void colorMarkers_data()
    {
        // Colours at 0, 50, 70, 95 and 100 on 0..100 by 5 ("-": none), and items ignored.
        addRows({"markers", "colors", "ignored"},
                {{"three bands", "0:#2e7d32;70:#f9a825;90:#c62828",
                  "#2e7d32 #2e7d32 #f9a825 #c62828 #c62828", "0"},
                 {"names and blanks", " 60 : red ;; 90:blue", "- - #ff0000 #0000ff #0000ff", "0"},
                 {"bad items left out", "150:red;-1:red;x:red;10:nocolour;10;:red;50:green",
                  "- #008000 #008000 #008000 #008000", "6"},
                 {"empty", "", "- - - - -", "0"}});
    }
    void colorMarkers()
    {
        const auto [markers, colors, ignored] = texts<3>();
        StderrCapture capture;
        const auto parser = SpecText::read(
            QString("<N TYPE='SLIDER' MIN='0' MAX='100' STEP='5' COLORMARKER='%1'/>").arg(markers));
        QCOMPARE(QString::number(capture.text().count("Warning: ignoring COLORMARKER item")),
                 ignored);
        auto* element = qobject_cast<SliderElement*>(numeric(*parser));
        QWidget panel;
        QWidget* box = element->createControl(&panel);
        auto* marks = box->findChild<QLabel*>("colorMarkLabel");
        QCOMPARE(marks->isHidden(), markers.isEmpty());
        const QImage image = marks->pixmap().toImage();
        QStringList sampled;
        for (int value : {0, 50, 70, 95, 100}) {
            const QColor color = image.pixelColor(element->positionOf(value), 0);
            sampled.append(color.alpha() == 0 ? QString("-") : color.name());
        }
        QCOMPARE(sampled.join(' '), colors);
    }

    // Out-of-range numbers go to the nearer limit, surplus decimals are cut; limits -5 and 100
    // for integers, -1 and 10 for decimals.
    void fixup()
    {
        const auto fixed = [](const QValidator& validator, const QStringList& texts) {
            QStringList out;
            for (QString text : texts) {
                validator.fixup(text);
                out.append('<' + text + '>');
            }
            return out.join(' ');
        };
        QCOMPARE(fixed(IntValidator(-5, 100), {"-7", "150", "42", "abc"}), "<-5> <100> <42> <abc>");
        // One decimal: cut, fraction's leading zero lost, blanks and above top, no point, not
        // a number.
        QCOMPARE(fixed(DoubleValidator(-1.0, 10.0, 1), {"2.345", "1.05", " 11 ", "7", "x"}),
                 "<2.3> <1.0> <10.0> <7> <x>");
        QCOMPARE(fixed(DoubleValidator(-1.0, 10.0, 2), {"1.05", ".5", "-3"}),
                 "<1.05> <0.5> <-1.00>");
        QCOMPARE(fixed(DoubleValidator(-1.0, 10.0, 0), {"3.7"}), "<3.0>");
    }

    // The decimal spin box scales, rounds half up and stays within int.
    // In two decimals: plain, blanks, half up, huge, tiny, not a number.
    void spinBoxReadsText()
    {
        FloatSpinBox spin(-10.0, 10.0, 0.01, 2);
        QStringList values;
        for (const char* text : {"1.23", "  0.5 ", "0.125", "1e12", "-1e12", "x"}) {
            spin.findChild<QLineEdit*>()->setText(text);
            bool ok = false;
            const int value = spin.mapTextToValue(&ok);
            values.append(QString::number(value) + (ok ? "" : "!"));
        }
        QCOMPARE(values.join(' '), "123 50 13 2147483647 -2147483648 0");
    }
};

QTEST_MAIN(TestNumericElement)
#include "TestNumericElement.moc"
