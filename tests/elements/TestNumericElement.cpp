#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"

#include "FloatElement.h"
#include "Log.h"
#include "NumericElement.h"
#include "SliderElement.h"

#include <QSignalSpy>
#include <QtTest>

// Limits, steps and digits of the number kinds, and how validation treats values outside.
class TestNumericElement : public QObject
{
    Q_OBJECT

private slots:
    void limitsRead();
    void integerClamping_data();
    void integerClamping();
    void sliderNotClamped();
    void floatOutOfRangeKept();
    void limitSignals();
    void colorMarkers_data();
    void colorMarkers();
};

void TestNumericElement::limitsRead()
{
    const auto parser = SpecText::read(
        "<N TYPE=\"INTEGER\" MIN=\"1\" MAX=\"99\" STEP=\"2\" FACTORY=\"1\"/>"
        "<F TYPE=\"FLOAT\" MIN=\"0.5\" MAX=\"2.5\" DIGITS=\"1\"/><E TYPE=\"INTEGER\"/>");
    auto* n = qobject_cast<NumericElement*>(parser->findElement("N"));
    QCOMPARE(n->min(), QString("1"));
    QCOMPARE(n->max(), QString("99"));
    QVERIFY(n->hasMax());
    QCOMPARE(n->property("step").toString(), QString("2"));
    QCOMPARE(n->factory(), QString("1"));
    QVERIFY(n->hasFactory());
    auto* f = qobject_cast<FloatElement*>(parser->findElement("F"));
    QCOMPARE(f->digits(), QString("1"));
    QVERIFY(f->step().isNull());
    auto* e = qobject_cast<NumericElement*>(parser->findElement("E"));
    QVERIFY(e->max().isEmpty());
    QVERIFY(!e->hasMax());
    QVERIFY(e->min().isNull());
    QVERIFY(e->factory().isNull());
}

void TestNumericElement::integerClamping_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("announced");
    QTest::newRow("above max") << "CURRENT=\"120\" MIN=\"0\" MAX=\"100\""
                               << "100" << true;
    QTest::newRow("below min") << "CURRENT=\"3\" MIN=\"5\" MAX=\"100\""
                               << "5" << true;
    QTest::newRow("inside") << "CURRENT=\"50\" MIN=\"0\" MAX=\"100\""
                            << "50" << false;
    QTest::newRow("at the limits") << "CURRENT=\"100\" MIN=\"100\" MAX=\"100\""
                                   << "100" << false;
    QTest::newRow("missing MIN compares with 0") << "CURRENT=\"0\" MAX=\"10\""
                                                 << "0" << false;
    QTest::newRow("below a missing MIN takes its empty text") << "CURRENT=\"-1\" MAX=\"10\""
                                                              << "" << true;
    QTest::newRow("not a number counts as 0") << "CURRENT=\"abc\" MIN=\"2\" MAX=\"10\""
                                              << "2" << true;
}

void TestNumericElement::integerClamping()
{
    QFETCH(QString, attributes);
    QFETCH(QString, after);
    QFETCH(bool, announced);
    const auto parser = SpecText::read(QStringLiteral("<N TYPE=\"INTEGER\" %1/>").arg(attributes));
    auto* n = qobject_cast<NumericElement*>(parser->findElement("N"));
    QSignalSpy spy(n, &ConcreteElement::valueChanged);
    QVERIFY(n->isValid());
    QCOMPARE(n->current(), after);
    QCOMPARE(spy.count(), announced ? 1 : 0);
    if (announced)
        QCOMPARE(spy.at(0).at(0).toString(), after);
}

void TestNumericElement::sliderNotClamped()
{
    const auto parser =
        SpecText::read("<S TYPE=\"SLIDER\" CURRENT=\"500\" MIN=\"0\" MAX=\"100\"/>");
    auto* s = qobject_cast<SliderElement*>(parser->findElement("S"));
    QVERIFY(s->isValid());
    QCOMPARE(s->current(), QString("500"));
}

void TestNumericElement::floatOutOfRangeKept()
{
    const auto parser =
        SpecText::read("<F TYPE=\"FLOAT\" CURRENT=\" 3.5 \" MIN=\"0.5\" MAX=\"2.5\"/>");
    auto* f = qobject_cast<FloatElement*>(parser->findElement("F"));
    logLevel = 10;
    StderrCapture capture;
    QVERIFY(f->isValid());
    const QByteArray log = capture.text();
    logLevel = kDefaultLogLevel;
    QCOMPARE(f->current(), QString(" 3.5 "));
    QVERIFY(log.contains("FloatElement::isValid(): current > max. New current= 3.5 "));
}

void TestNumericElement::limitSignals()
{
    const auto parser = SpecText::read("<F TYPE=\"FLOAT\" MIN=\"1\" MAX=\"2\" STEP=\"1\"/>");
    auto* f = qobject_cast<FloatElement*>(parser->findElement("F"));
    QSignalSpy max(f, &BoundaryElement::maxChanged);
    QSignalSpy min(f, &NumericElement::minChanged);
    QSignalSpy digits(f, &FloatElement::digitsChanged);
    f->maxChange("2");
    f->maxChange("3");
    f->minChange("0");
    f->digitsChange("2");
    f->digitsChange("2");
    QCOMPARE(max.count(), 1);
    QCOMPARE(max.at(0).at(0).toString(), QString("3"));
    QCOMPARE(min.count(), 1);
    QCOMPARE(digits.count(), 1);
    QCOMPARE(f->max(), QString("3"));
    QVERIFY(f->setProperty("min", "-1"));
    QCOMPARE(f->min(), QString("-1"));
}

void TestNumericElement::colorMarkers_data()
{
    QTest::addColumn<QString>("markers");
    QTest::addColumn<QList<double>>("positions");
    QTest::addColumn<QStringList>("colors");
    QTest::addColumn<int>("ignored");
    QTest::newRow("three") << "0:#2e7d32;70:#f9a825;90:#c62828" << QList<double>({0, 70, 90})
                           << QStringList({"#2e7d32", "#f9a825", "#c62828"}) << 0;
    QTest::newRow("names and blanks") << " 10 : red ;; 20:blue" << QList<double>({10, 20})
                                      << QStringList({"#ff0000", "#0000ff"}) << 0;
    QTest::newRow("bad items left out") << "150:red;-1:red;x:red;10:nocolour;10;:red;50:green"
                                        << QList<double>({50}) << QStringList({"#008000"}) << 6;
    QTest::newRow("empty") << "" << QList<double>() << QStringList() << 0;
}

void TestNumericElement::colorMarkers()
{
    QFETCH(QString, markers);
    QFETCH(QList<double>, positions);
    QFETCH(QStringList, colors);
    QFETCH(int, ignored);
    StderrCapture capture;
    const auto parser = SpecText::read(
        QStringLiteral("<S TYPE=\"SLIDER\" MIN=\"0\" MAX=\"100\" COLORMARKER=\"%1\"/>")
            .arg(markers));
    const QByteArray log = capture.text();
    auto* s = qobject_cast<SliderElement*>(parser->findElement("S"));
    QCOMPARE(s->colorMarkerText(), markers);
    QCOMPARE(s->colorMarkers().size(), positions.size());
    for (int i = 0; i < positions.size(); ++i) {
        QCOMPARE(s->colorMarkers().at(i).position, positions.at(i));
        QCOMPARE(s->colorMarkers().at(i).color.name(), colors.at(i));
    }
    QCOMPARE(int(log.count("Warning: ignoring COLORMARKER item")), ignored);
}

QTEST_MAIN(TestNumericElement)
#include "TestNumericElement.moc"
