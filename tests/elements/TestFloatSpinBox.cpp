#include "FloatSpinBox.h"

#include <QLineEdit>
#include <QtTest>

// The decimal spin box reading typed text: scaled, rounded half up, kept within the int range.
class TestFloatSpinBox : public QObject
{
    Q_OBJECT

private slots:
    void mapTextToValue_data();
    void mapTextToValue();
};

void TestFloatSpinBox::mapTextToValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    QTest::newRow("plain") << "1.23" << 123;
    QTest::newRow("blanks") << "  0.5 " << 50;
    QTest::newRow("rounds half up") << "0.125" << 13;
    QTest::newRow("huge") << "1e12" << 2147483647;
    QTest::newRow("tiny") << "-1e12" << int(-2147483647 - 1);
    QTest::newRow("not a number") << "x" << 0;
}

void TestFloatSpinBox::mapTextToValue()
{
    QFETCH(QString, text);
    QFETCH(int, value);
    FloatSpinBox spin(-10.0, 10.0, 0.01, 2);
    spin.findChild<QLineEdit*>()->setText(text);
    bool ok = false;
    QCOMPARE(spin.mapTextToValue(&ok), value);
    QVERIFY(ok);
}

QTEST_MAIN(TestFloatSpinBox)
#include "TestFloatSpinBox.moc"
