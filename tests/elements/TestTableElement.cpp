#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"

#include "elements/ListElement.h"
#include "elements/PaperSizeParameter.h"
#include "elements/TableCellPaperSizeElement.h"
#include "elements/TableElement.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

namespace {

const char* const kTable =
    "<T TYPE='TABLE' STRING='Trays'><TableHeader><HeadRow><HeadCell STRING='Size'/><HeadCell "
    "STRING='Count'/><HeadCell STRING='Alert'/></HeadRow><HeadRow><HeadCell/></HeadRow>"
    "</TableHeader><DataRow STRING='Tray 1'><DataCell TYPE='COMBOBOX'><A4/></DataCell><DataCell "
    "TYPE='INTEGER' MAX='3' CURRENT='1'/><DataCell TYPE='CHECKBOX' CURRENT='On'><Off/><On/>"
    "</DataCell></DataRow><DataRow STRING='Tray 2'><DataCell TYPE='ROWSPLIT'/><Extra "
    "TYPE='INTEGER'/><DataCell TYPE='NOPE'/><DataCell TYPE='PAPERSIZE' STRING='Paper'><A4/>"
    "</DataCell></DataRow></T>";

bool record(Element* element, void* data)
{
    static_cast<QStringList*>(data)->append(element->id() + ' ' +
                                            element->metaObject()->className());
    return true;
}

QWidget* at(QGridLayout* grid, int row, int column)
{
    QLayoutItem* item = grid->itemAtPosition(row, column);
    return item ? item->widget() : nullptr;
}

} // namespace

// Tables: header, rows, cells and their ids, the walks over cells, and the grid control.
class TestTableElement : public QObject
{
    Q_OBJECT

private slots:
    void layout()
    {
        StderrCapture capture;
        const auto parser = SpecText::read(kTable);
        const QByteArray log = capture.text();
        auto* table = qobject_cast<TableElement*>(parser->findElement("T"));
        QCOMPARE(table->columnTitles(), QStringList({"Size", "Count", "Alert"}));
        QCOMPARE(table->rowTitles(), QStringList({"Tray 1", "Tray 2"}));
        QCOMPARE(table->rows().at(0).size(), 3);
        QVERIFY(!table->rows().at(1).at(0));
        QVERIFY(log.contains("Warning: skipping unexpected second header row"));
        QVERIFY(log.contains("Warning: skipping element with unexpected TYPE='NOPE'"));
        // Only DataCell children are cells, their ids counting DataCells; each of its kind.
        QStringList seen;
        QVERIFY(parser->enumerateElements(record, &seen));
        QCOMPARE(seen, QStringList({"T.1.1 TableCellListElement", "T.1.2 NumericElement",
                                    "T.1.3 ListElement", "T.2.3 TableCellPaperSizeElement"}));
        QVERIFY(!parser->findElement("DataCell") && !parser->findElement("Extra"));
        auto* paper = qobject_cast<TableCellPaperSizeElement*>(parser->findElement("T.2.3"));
        QCOMPARE(paper->title(), QString("Paper"));
        QCOMPARE(paper->parentElement(), table);
        QCOMPARE(paper->level(), 2u);
        QVERIFY(qobject_cast<PaperSizeParameter*>(paper->parameters().first()));
    }

    void gridAndEdits()
    {
        const auto parser = SpecText::read(kTable);
        QWidget panel;
        auto* box = qobject_cast<QGroupBox*>(parser->findElement("T")->createControl(&panel));
        QCOMPARE(box->title(), QString("&Trays"));
        auto* grid = qobject_cast<QGridLayout*>(box->layout());
        QCOMPARE(qobject_cast<QLabel*>(at(grid, 0, 1))->text(), QString("Size"));
        QCOMPARE(qobject_cast<QLabel*>(at(grid, 0, 3))->text(), QString("Alert"));
        QVERIFY(!at(grid, 0, 0));
        QCOMPARE(qobject_cast<QLabel*>(at(grid, 1, 0))->text(), QString("T&ray 1"));
        QCOMPARE(qobject_cast<QLabel*>(at(grid, 1, 0))->buddy(), at(grid, 1, 1));
        QVERIFY(qobject_cast<QComboBox*>(at(grid, 1, 1)));
        auto* box13 = qobject_cast<QCheckBox*>(parser->findElement("T.1.3")->control());
        QVERIFY(box13 && box13->text().isEmpty()); // the column title says it
        // Another kind keeps its own control; its caption gives way to the headers.
        QVERIFY(at(grid, 1, 2)->findChild<QLabel*>("label")->isHidden());
        QCOMPARE(parser->findElement("T.1.2")->control()->accessibleName(),
                 QString("Tray 1, Count"));
        QVERIFY(!at(grid, 2, 1));
        // The grid column is the cell id's column.
        QCOMPARE(at(grid, 2, 3), parser->findElement("T.2.3")->control());
        // Cells are edited in place.
        panel.show();
        auto* count = qobject_cast<ConcreteElement*>(parser->findElement("T.1.2"));
        QSignalSpy spy(count, &ConcreteElement::valueChanged);
        QTest::keyClick(count->control(), Qt::Key_Up);
        QCOMPARE(count->current(), QString("2"));
        QCOMPARE(spy.count(), 1);
        auto* alert = qobject_cast<ListElement*>(parser->findElement("T.1.3"));
        QTest::mouseClick(alert->control(), Qt::LeftButton);
        QCOMPARE(alert->current(), QString("Off"));
    }
};

QTEST_MAIN(TestTableElement)
#include "TestTableElement.moc"
