#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"

#include "ListElement.h"
#include "PaperSizeParameter.h"
#include "TableCellPaperSizeElement.h"
#include "TableElement.h"

#include <QtTest>

// Tables: header, rows, cells and their ids, and the walks over cells.
class TestTableElement : public QObject
{
    Q_OBJECT

private:
    static bool record(Element* element, void* data)
    {
        static_cast<QStringList*>(data)->append(element->id());
        return true;
    }

private slots:
    void layout();
    void cellKinds_data();
    void cellKinds();
    void walksAndLookups();
};

const char* const kTable =
    "<Sizes TYPE=\"TABLE\" STRING=\"Sizes\">"
    "<TableHeader><HeadRow><HeadCell STRING=\"Tray\"/><HeadCell STRING=\"Size\"/></HeadRow>"
    "<HeadRow><HeadCell STRING=\"Late\"/></HeadRow></TableHeader>"
    "<DataRow STRING=\"Row one\"><DataCell TYPE=\"COMBOBOX\" CURRENT=\"a\"><a/><b/></DataCell>"
    "<DataCell TYPE=\"ROWSPLIT\"/><DataCell TYPE=\"PAPERSIZE\" CURRENT=\"A4\"><A4 "
    "MAXTOPMARGIN=\"5\"/></DataCell></DataRow>"
    "<DataRow STRING=\"Row two\"><DataCell TYPE=\"NOPE\"/><Extra TYPE=\"INTEGER\" "
    "CURRENT=\"1\"/><DataCell TYPE=\"INTEGER\" CURRENT=\"7\" STRING=\"Count\"/></DataRow>"
    "</Sizes>";

void TestTableElement::layout()
{
    StderrCapture capture;
    const auto parser = SpecText::read(kTable);
    const QByteArray log = capture.text();
    auto* table = qobject_cast<TableElement*>(parser->findElement("Sizes"));
    QVERIFY(table);
    QCOMPARE(table->columnTitles(), QStringList({"Tray", "Size"}));
    QCOMPARE(table->rowTitles(), QStringList({"Row one", "Row two"}));
    QCOMPARE(table->rows().size(), 2);
    QCOMPARE(table->rows().at(0).size(), 3);
    QVERIFY(!table->rows().at(0).at(1));
    QVERIFY(!table->rows().at(1).at(0));
    QVERIFY(log.contains("Warning: skipping unexpected second header row"));
    QVERIFY(log.contains("Warning: skipping element with unexpected TYPE='NOPE'"));
}

void TestTableElement::cellKinds_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("title");
    QTest::newRow("list cell") << "Sizes.1.1"
                               << "TableCellListElement"
                               << "Sizes.1.1";
    QTest::newRow("paper cell") << "Sizes.1.3"
                                << "TableCellPaperSizeElement"
                                << "Sizes.1.3";
    QTest::newRow("other tag keeps its id") << "Extra"
                                            << "NumericElement"
                                            << "Extra";
    QTest::newRow("columns count DataCells") << "Sizes.2.2"
                                             << "NumericElement"
                                             << "Count";
}

void TestTableElement::cellKinds()
{
    QFETCH(QString, id);
    QFETCH(QString, className);
    QFETCH(QString, title);
    const auto parser = SpecText::read(kTable);
    Element* cell = parser->findElement(id);
    QVERIFY2(cell, qPrintable(id));
    QCOMPARE(QString(cell->metaObject()->className()), className);
    QCOMPARE(cell->title(), title);
    QCOMPARE(cell->parentElement(), parser->findElement("Sizes"));
    QCOMPARE(cell->level(), 2u);
}

void TestTableElement::walksAndLookups()
{
    const auto parser = SpecText::read(kTable);
    QStringList seen;
    QVERIFY(parser->enumerateElements(record, &seen));
    QCOMPARE(seen, QStringList({"Sizes.1.1", "Sizes.1.3", "Extra", "Sizes.2.2"}));
    auto* paper = qobject_cast<TableCellPaperSizeElement*>(parser->findElement("Sizes.1.3"));
    QVERIFY(qobject_cast<PaperSizeParameter*>(paper->parameters().first()));
    QVERIFY(!parser->findElement("DataCell"));
}

QTEST_MAIN(TestTableElement)
#include "TestTableElement.moc"
