#include "../xml/SpecText.h"

#include "SliderElement.h"

#include <QLabel>
#include <QSignalSpy>
#include <QSlider>
#include <QtTest>

// The slider control: positions in steps over the limits, its labels, the colour marks, and
// the value reaching the element.
class TestSliderControl : public QObject
{
    Q_OBJECT

private:
    static SliderElement* slider(SettingsParser& parser)
    {
        return qobject_cast<SliderElement*>(parser.findElement("S"));
    }

private slots:
    void keyboardAndLabels();
    void setControlValueIsSilent();
    void colorMarks_data();
    void colorMarks();
};

void TestSliderControl::keyboardAndLabels()
{
    const auto parser = SpecText::read("<S TYPE=\"SLIDER\" STRING=\"Darkness\" MIN=\"-5\" "
                                       "MAX=\"5\" STEP=\"1\" CURRENT=\"0\"/>");
    SliderElement* element = slider(*parser);
    QWidget panel;
    QWidget* box = element->createControl(&panel);
    QCOMPARE(box->findChild<QLabel*>("minusLabel")->text(), QString("-5"));
    QCOMPARE(box->findChild<QLabel*>("plusLabel")->text(), QString("5"));
    QCOMPARE(box->findChild<QLabel*>("valueLabel")->text(), QString("0"));
    QCOMPARE(box->findChild<QLabel*>("label")->buddy(), element->control());
    QCOMPARE(element->control()->accessibleName(), QString("Darkness"));
    panel.show();
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    QTest::keyClick(element->control(), Qt::Key_Right);
    QCOMPARE(element->current(), QString("1"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(box->findChild<QLabel*>("valueLabel")->text(), QString("1"));
    QTest::keyClick(element->control(), Qt::Key_Home);
    QCOMPARE(element->current(), QString("-5"));
    element->minChange("-2");
    QCOMPARE(box->findChild<QLabel*>("minusLabel")->text(), QString("-2"));
    QCOMPARE(qobject_cast<QSlider*>(element->control())->maximum(), 7);
}

void TestSliderControl::setControlValueIsSilent()
{
    const auto parser =
        SpecText::read("<S TYPE=\"SLIDER\" MIN=\"0\" MAX=\"100\" STEP=\"10\" CURRENT=\"50\"/>");
    SliderElement* element = slider(*parser);
    QWidget panel;
    QWidget* box = element->createControl(&panel);
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    element->setControlValue("80");
    QCOMPARE(qobject_cast<QSlider*>(element->control())->value(), 8);
    QCOMPARE(box->findChild<QLabel*>("valueLabel")->text(), QString("80"));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(element->current(), QString("50"));
}

void TestSliderControl::colorMarks_data()
{
    QTest::addColumn<QString>("markers");
    QTest::addColumn<QStringList>("colors");
    // Sampled at 0, 50, 70, 95 and 100 on a 0..100 scale by 5.
    QTest::newRow("three bands") << "0:#2e7d32;70:#f9a825;90:#c62828"
                                 << QStringList(
                                        {"#2e7d32", "#2e7d32", "#f9a825", "#c62828", "#c62828"});
    QTest::newRow("uncoloured start")
        << "60:red" << QStringList({"", "", "#ff0000", "#ff0000", "#ff0000"});
    QTest::newRow("unknown syntax harmless")
        << "red,green;x:blue;150:#000000" << QStringList({"", "", "", "", ""});
}

void TestSliderControl::colorMarks()
{
    QFETCH(QString, markers);
    QFETCH(QStringList, colors);
    const auto parser = SpecText::read(
        QStringLiteral("<S TYPE=\"SLIDER\" MIN=\"0\" MAX=\"100\" STEP=\"5\" CURRENT=\"0\" "
                       "COLORMARKER=\"%1\"/>")
            .arg(markers));
    SliderElement* element = slider(*parser);
    QWidget panel;
    QWidget* box = element->createControl(&panel);
    const QImage image = box->findChild<QLabel*>("colorMarkLabel")->pixmap().toImage();
    QCOMPARE(image.width(), 21);
    QStringList sampled;
    for (int value : {0, 50, 70, 95, 100}) {
        const QColor color = image.pixelColor(element->positionOf(value), 0);
        sampled.append(color.alpha() == 0 ? QString("") : color.name());
    }
    QCOMPARE(sampled, colors);
    QCOMPARE(box->findChild<QLabel*>("colorMarkLabel")->isHidden(),
             element->colorMarkers().isEmpty());
}

QTEST_MAIN(TestSliderControl)
#include "TestSliderControl.moc"
