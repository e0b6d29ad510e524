#pragma once

#include "elements/Element.h"

#include <QStringList>

class IElementFactory;

// A table of settings: column titles from its header row, one row per "DataRow" and one
// cell per child of a row. A "DataCell" is known by the id "<table>.<row>.<column>" (both
// counted from 1); a "ROWSPLIT" cell holds no setting.
class TableElement : public Element
{
    Q_OBJECT

public:
    TableElement(const QDomElement& node, int type, const QDomNode* parentNode,
                 Element* parentElement, IElementFactory* factory);
    ~TableElement() override;

    const QStringList& columnTitles() const { return _columnTitles; }
    const QStringList& rowTitles() const { return _rowTitles; }
    // Per row, its cells in order; null for a cell that holds no setting.
    const QList<QList<Element*>>& rows() const { return _rows; }

    static QString cellId(const QString& tableId, int row, int column);

    // A titled grid: the column titles across the top, each row's title down the side, and in
    // each cell the control of its setting without caption. "ROWSPLIT" cells stay empty.
    QWidget* createControl(QWidget* parent) override;
    void deleteControl() override;
    // Where a column's title goes: over the cells, or over the row titles as well when the
    // header has one title more than the widest row has cells.
    int columnTitleOffset() const;

    bool iterateElements(ElementVisitor visitor, void* data) override;
    void connectSignals(QObject* receiver) override;
    bool translateElement(const Translator& translator) override;
    Element* findElement(const QString& id) override;

private:
    // The cell's control in the grid; a captioned box loses its caption, which the headers
    // give.
    QWidget* createCellControl(Element* cell, QWidget* grid, int row, int column);
    void readHeader(const QDomElement& header);
    void readRow(const QDomElement& row, const QDomNode* parentNode, IElementFactory* factory);

    QStringList _columnTitles;
    bool _headerRead = false;
    QStringList _rowTitles;
    QList<QList<Element*>> _rows;
};
