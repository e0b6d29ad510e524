#include "DoubleValidator.h"
#include "IntValidator.h"

#include <QtTest>

// The fixups of the spin boxes' validators: out-of-range numbers go to the nearer limit,
// surplus decimals are cut.
class TestNumericValidators : public QObject
{
    Q_OBJECT

private slots:
    void intFixup_data();
    void intFixup();
    void doubleFixup_data();
    void doubleFixup();
};

void TestNumericValidators::intFixup_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fixed");
    QTest::newRow("below") << "-7"
                           << "-5";
    QTest::newRow("above") << "150"
                           << "100";
    QTest::newRow("inside") << "42"
                            << "42";
    QTest::newRow("not a number counts as 0") << "abc"
                                              << "abc";
    QTest::newRow("bottom edge") << "-5"
                                 << "-5";
}

void TestNumericValidators::intFixup()
{
    QFETCH(QString, text);
    QFETCH(QString, fixed);
    IntValidator validator(-5, 100);
    validator.fixup(text);
    QCOMPARE(text, fixed);
}

void TestNumericValidators::doubleFixup_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fixed");
    QTest::newRow("cut to one decimal") << 1 << "2.345"
                                        << "2.3";
    QTest::newRow("leading zero of fraction lost") << 1 << "1.05"
                                                   << "1.0";
    QTest::newRow("two decimals kept") << 2 << "1.05"
                                       << "1.05";
    QTest::newRow("no integer part") << 2 << ".5"
                                     << "0.5";
    QTest::newRow("no decimals allowed") << 0 << "3.7"
                                         << "3.0";
    QTest::newRow("below bottom") << 2 << "-3"
                                  << "-1.00";
    QTest::newRow("above top") << 1 << "12.5"
                               << "10.0";
    QTest::newRow("blanks around, above top") << 1 << " 11 "
                                              << "10.0";
    QTest::newRow("no point left alone") << 1 << "7"
                                         << "7";
    QTest::newRow("not a number is 0, in range") << 1 << "x"
                                                 << "x";
}

void TestNumericValidators::doubleFixup()
{
    QFETCH(int, decimals);
    QFETCH(QString, text);
    QFETCH(QString, fixed);
    DoubleValidator validator(-1.0, 10.0, decimals);
    validator.fixup(text);
    QCOMPARE(text, fixed);
}

QTEST_MAIN(TestNumericValidators)
#include "TestNumericValidators.moc"
