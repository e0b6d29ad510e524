#include "DoubleValidator.h"
#include "FloatSpinBox.h"
#include "IntValidator.h"

#include <QLineEdit>
#include <QtTest>

// Typed numbers: the validators' fixups take out-of-range numbers to the nearer limit and cut
// surplus decimals; the decimal spin box scales, rounds half up and stays within int.
class TestNumericValidators : public QObject
{
    Q_OBJECT

private slots:
    void intFixup_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("fixed"); // limits -5 and 100
        QTest::newRow("below") << "-7" << QString("-5");
        QTest::newRow("above") << "150" << QString("100");
        QTest::newRow("inside") << "42" << QString("42");
        QTest::newRow("bottom edge") << "-5" << QString("-5");
        QTest::newRow("not a number left alone") << "abc" << QString("abc");
    }
    void intFixup()
    {
        QFETCH(QString, text);
        QFETCH(QString, fixed);
        IntValidator(-5, 100).fixup(text);
        QCOMPARE(text, fixed);
    }

    void doubleFixup_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("fixed"); // limits -1 and 10
        QTest::newRow("cut to one decimal") << 1 << "2.345" << QString("2.3");
        QTest::newRow("leading zero of fraction lost") << 1 << "1.05" << QString("1.0");
        QTest::newRow("two decimals kept") << 2 << "1.05" << QString("1.05");
        QTest::newRow("no integer part") << 2 << ".5" << QString("0.5");
        QTest::newRow("no decimals allowed") << 0 << "3.7" << QString("3.0");
        QTest::newRow("below bottom") << 2 << "-3" << QString("-1.00");
        QTest::newRow("blanks around, above top") << 1 << " 11 " << QString("10.0");
        QTest::newRow("no point left alone") << 1 << "7" << QString("7");
        QTest::newRow("not a number is 0, in range") << 1 << "x" << QString("x");
    }
    void doubleFixup()
    {
        QFETCH(int, decimals);
        QFETCH(QString, text);
        QFETCH(QString, fixed);
        DoubleValidator(-1.0, 10.0, decimals).fixup(text);
        QCOMPARE(text, fixed);
    }

    void spinBoxReadsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("value"); // two decimals
        QTest::newRow("plain") << "1.23" << 123;
        QTest::newRow("blanks") << "  0.5 " << 50;
        QTest::newRow("rounds half up") << "0.125" << 13;
        QTest::newRow("huge") << "1e12" << 2147483647;
        QTest::newRow("tiny") << "-1e12" << int(-2147483647 - 1);
        QTest::newRow("not a number") << "x" << 0;
    }
    void spinBoxReadsText()
    {
        QFETCH(QString, text);
        QFETCH(int, value);
        FloatSpinBox spin(-10.0, 10.0, 0.01, 2);
        spin.findChild<QLineEdit*>()->setText(text);
        bool ok = false;
        QCOMPARE(spin.mapTextToValue(&ok), value);
        QVERIFY(ok);
    }
};

QTEST_MAIN(TestNumericValidators)
#include "TestNumericValidators.moc"
