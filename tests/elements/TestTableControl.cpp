#include "../xml/SpecText.h"

#include "ListElement.h"
#include "NumericElement.h"
#include "TableElement.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

// The table control: headers, bare cell controls in their grid places, empty split cells,
// edits reaching the cell elements, and removal.
class TestTableControl : public QObject
{
    Q_OBJECT

private:
    static constexpr const char* kTable =
        "<T TYPE=\"TABLE\" STRING=\"Trays\"><TableHeader><HeadRow>"
        "<HeadCell STRING=\"Size\"/><HeadCell STRING=\"Count\"/><HeadCell STRING=\"Alert\"/>"
        "</HeadRow></TableHeader>"
        "<DataRow STRING=\"Tray 1\"><DataCell TYPE=\"COMBOBOX\" "
        "CURRENT=\"A4\"><A4/><A5/></DataCell>"
        "<DataCell TYPE=\"INTEGER\" MIN=\"1\" MAX=\"3\" STEP=\"1\" CURRENT=\"1\"/>"
        "<DataCell TYPE=\"CHECKBOX\" CURRENT=\"On\"><Off/><On/></DataCell></DataRow>"
        "<DataRow STRING=\"Tray 2\"><DataCell TYPE=\"ROWSPLIT\"/>"
        "<DataCell TYPE=\"INTEGER\" MIN=\"1\" MAX=\"3\" STEP=\"1\" CURRENT=\"2\"/></DataRow>"
        "</T>";

    static QWidget* at(QGridLayout* grid, int row, int column)
    {
        QLayoutItem* item = grid->itemAtPosition(row, column);
        return item ? item->widget() : nullptr;
    }

private slots:
    void grid();
    void cellEdits();
};

void TestTableControl::grid()
{
    const auto parser = SpecText::read(kTable);
    Element* table = parser->findElement("T");
    QWidget panel;
    auto* box = qobject_cast<QGroupBox*>(table->createControl(&panel));
    QVERIFY(box);
    QCOMPARE(box->title(), QString("&Trays"));
    auto* grid = qobject_cast<QGridLayout*>(box->layout());
    QCOMPARE(qobject_cast<QLabel*>(at(grid, 0, 1))->text(), QString("Size"));
    QCOMPARE(qobject_cast<QLabel*>(at(grid, 0, 3))->text(), QString("Alert"));
    QVERIFY(!at(grid, 0, 0));
    QCOMPARE(qobject_cast<QLabel*>(at(grid, 1, 0))->text(), QString("T&ray 1"));
    QCOMPARE(at(grid, 1, 1), parser->findElement("T.1.1")->control());
    QVERIFY(qobject_cast<QComboBox*>(at(grid, 1, 1)));
    QVERIFY(qobject_cast<QCheckBox*>(parser->findElement("T.1.3")->control()));
    // Another kind keeps its own control; its caption gives way to the headers.
    QWidget* numberBox = at(grid, 1, 2);
    QCOMPARE(numberBox->objectName(), QString("hbox"));
    QVERIFY(numberBox->findChild<QLabel*>("label")->isHidden());
    QCOMPARE(parser->findElement("T.1.2")->control()->accessibleName(), QString("Tray 1, Count"));
    QVERIFY(!at(grid, 2, 1));
    QVERIFY(at(grid, 2, 2));
    QCOMPARE(qobject_cast<QLabel*>(at(grid, 1, 0))->buddy(), at(grid, 1, 1));
}

void TestTableControl::cellEdits()
{
    const auto parser = SpecText::read(kTable);
    QWidget panel;
    parser->findElement("T")->createControl(&panel);
    panel.show();
    auto* count = qobject_cast<NumericElement*>(parser->findElement("T.2.2"));
    QSignalSpy spy(count, &ConcreteElement::valueChanged);
    QTest::keyClick(count->control(), Qt::Key_Up);
    QCOMPARE(count->current(), QString("3"));
    QCOMPARE(spy.count(), 1);
    auto* alert = qobject_cast<ListElement*>(parser->findElement("T.1.3"));
    QTest::mouseClick(alert->control(), Qt::LeftButton);
    QCOMPARE(alert->current(), QString("Off"));
}

QTEST_MAIN(TestTableControl)
#include "TestTableControl.moc"
