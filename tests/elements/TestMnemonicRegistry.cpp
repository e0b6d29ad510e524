#include "../xml/SpecText.h"
#include "Rows.h"

#include "elements/ComplexElement.h"
#include "elements/MnemonicRegistry.h"
#include "xml/ElementType.h"

#include <QAbstractButton>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>
#include <QtTest>

namespace {

void collectGroups(Element* element, QList<ComplexElement*>* groups)
{
    auto* group = qobject_cast<ComplexElement*>(element);
    if (!group)
        return;
    if (group->type() != etForm)
        groups->append(group);
    for (Element* child : group->elements())
        collectGroups(child, groups);
}

// The mnemonic letters of a panel's visible captions, buttons and group boxes.
QStringList mnemonics(const QWidget* panel)
{
    QStringList texts, found;
    for (const QLabel* label : panel->findChildren<QLabel*>()) {
        if (label->buddy() && label->isVisibleTo(panel->window()))
            texts.append(label->text());
    }
    for (const QAbstractButton* button : panel->findChildren<QAbstractButton*>())
        texts.append(button->text());
    for (const QGroupBox* box : panel->findChildren<QGroupBox*>())
        texts.append(box->title());
    for (const QString& text : std::as_const(texts)) {
        if (const QChar key = MnemonicRegistry::mnemonicOf(text); !key.isNull())
            found.append(key);
    }
    return found;
}

} // namespace

// Mnemonics of the captions: one letter per window, word starts first, letters freed with
// their widgets, a mnemonic that really moves the focus, and every group of the sample
// specifications shown as the settings dialog shows it.
class TestMnemonicRegistry : public QObject
{
    Q_OBJECT

private slots:
    void marks_data()
    {
        columns<QStringList, QStringList>({"captions", "marked"});
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
        const auto [captions, marked] = fetch<QStringList, QStringList>();
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

    // Each setting gets a real control, the captions of one panel never share a mnemonic, and
    // leaving the panel removes every widget.
    void everySampleGroup_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("laser") << QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml");
        QTest::newRow("inkjet") << QStringLiteral(TAV_DATA_DIR "/inkjet_mfp.xml");
    }
    void everySampleGroup()
    {
        QFETCH(QString, path);
        SettingsParser parser;
        QFile file(path);
        QVERIFY(parser.open(&file));
        parser.readPrinterSettings();
        QList<ComplexElement*> groups;
        collectGroups(parser.root(), &groups);
        QVERIFY(groups.size() > 3);
        int controls = 0, marked = 0;
        for (ComplexElement* group : std::as_const(groups)) {
            QWidget panel;
            auto* layout = new QVBoxLayout(&panel);
            QList<Element*> shown;
            for (Element* child : group->elements()) {
                if (child->isComplex() && child->type() != etForm)
                    continue;
                layout->addWidget(child->createControl(&panel));
                QVERIFY2(child->control(), qPrintable(child->id()));
                shown.append(child);
            }
            for (const QLabel* label : panel.findChildren<QLabel*>())
                QVERIFY2(label->text() != "Unknown control type", qPrintable(group->id()));
            const QStringList keys = mnemonics(&panel);
            QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
            controls += int(shown.size());
            marked += int(keys.size());
            for (Element* child : std::as_const(shown))
                child->deleteControl();
            QVERIFY2(panel.findChildren<QWidget*>().isEmpty(), qPrintable(group->id()));
        }
        QVERIFY(controls > 20);
        // Most captions have room for a letter.
        QVERIFY(marked > controls / 2);
    }
};

QTEST_MAIN(TestMnemonicRegistry)
#include "TestMnemonicRegistry.moc"
