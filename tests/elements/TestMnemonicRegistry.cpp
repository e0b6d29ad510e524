#include "../xml/SpecText.h"

#include "Element.h"
#include "MnemonicRegistry.h"

#include <QLabel>
#include <QtTest>

// Mnemonics of the captions: one letter per window, word starts first, letters freed with
// their widgets, and a mnemonic that really moves the focus.
class TestMnemonicRegistry : public QObject
{
    Q_OBJECT

private slots:
    void marks_data()
    {
        QTest::addColumn<QStringList>("captions");
        QTest::addColumn<QStringList>("marked");
        QTest::newRow("first letters") << QStringList({"Paper size", "Paper type", "Tray"})
                                       << QStringList({"&Paper size", "Paper &type", "T&ray"});
        QTest::newRow("case blind")
            << QStringList({"copies", "Color"}) << QStringList({"&copies", "C&olor"});
        QTest::newRow("ampersand escaped")
            << QStringList({"R&D", "&"}) << QStringList({"&R&&D", "&&"});
        QTest::newRow("no letter left")
            << QStringList({"ab", "ba", "a b"}) << QStringList({"&ab", "&ba", "a b"});
        QTest::newRow("digits") << QStringList({"1 x", "1"}) << QStringList({"&1 x", "1"});
    }

    void marks()
    {
        QFETCH(QStringList, captions);
        QFETCH(QStringList, marked);
        QWidget window;
        QStringList out;
        for (const QString& caption : captions)
            out.append(MnemonicRegistry::mark(&window, new QLabel(&window), caption));
        QCOMPARE(out, marked);
    }

    void lettersComeBackWithTheirWidgets()
    {
        QWidget window;
        auto* first = new QLabel(&window);
        QCOMPARE(MnemonicRegistry::mark(&window, first, "Speed"), QString("&Speed"));
        QCOMPARE(MnemonicRegistry::mark(&window, new QLabel(&window), "Speed"), QString("S&peed"));
        delete first;
        QCOMPARE(MnemonicRegistry::mark(&window, new QLabel(&window), "Speed"), QString("&Speed"));
    }

    void mnemonicFocusesInput()
    {
        const auto parser = SpecText::read("<A TYPE='EDITBOX' STRING='Name'/>"
                                           "<B TYPE='EDITBOX' STRING='Number'/>");
        QWidget window;
        parser->findElement("A")->createControl(&window);
        parser->findElement("B")->createControl(&window);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QWidget* number = parser->findElement("B")->control();
        QTest::keyClick(&window, Qt::Key_U, Qt::AltModifier);
        QTRY_COMPARE(QApplication::focusWidget(), number);
        // Tab order follows creation order.
        QWidget* name = parser->findElement("A")->control();
        name->setFocus();
        QTest::keyClick(name, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), number);
    }
};

QTEST_MAIN(TestMnemonicRegistry)
#include "TestMnemonicRegistry.moc"
