#include "elements/TableElement.h"

#include "elements/ControlBox.h"
#include "elements/IElementFactory.h"
#include "elements/MnemonicRegistry.h"
#include "elements/TraceLog.h"

#include <QCheckBox>
#include <QDomElement>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRegularExpression>

TableElement::TableElement(const QDomElement& node, int type, const QDomNode* parentNode,
                           Element* parentElement, IElementFactory* factory)
    : Element(node, type, parentNode, parentElement)
{
    for (QDomElement child = node.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() == QLatin1String("TableHeader"))
            readHeader(child);
        else if (child.tagName() == QLatin1String("DataRow"))
            readRow(child, parentNode, factory);
    }
}

TableElement::~TableElement()
{
    for (const QList<Element*>& row : std::as_const(_rows))
        qDeleteAll(row);
}

QString TableElement::cellId(const QString& tableId, int row, int column)
{
    return QStringLiteral("%1.%2.%3").arg(tableId).arg(row).arg(column);
}

void TableElement::readHeader(const QDomElement& header)
{
    for (QDomElement row = header.firstChildElement(QStringLiteral("HeadRow")); !row.isNull();
         row = row.nextSiblingElement(QStringLiteral("HeadRow"))) {
        if (_headerRead) {
            TAV_LOG(9, "Warning: skipping unexpected second header row");
            continue;
        }
        _headerRead = true;
        for (QDomElement cell = row.firstChildElement(QStringLiteral("HeadCell")); !cell.isNull();
             cell = cell.nextSiblingElement(QStringLiteral("HeadCell")))
            _columnTitles.append(cell.attribute(QStringLiteral("STRING")));
    }
}

void TableElement::readRow(const QDomElement& row, const QDomNode* parentNode,
                           IElementFactory* factory)
{
    _rowTitles.append(row.attribute(QStringLiteral("STRING")));
    const int rowNumber = int(_rows.size()) + 1;
    QList<Element*> cells;
    int column = 0;
    for (QDomElement cell = row.firstChildElement(); !cell.isNull();
         cell = cell.nextSiblingElement()) {
        // Only DataCell children are cells: anything else would shift the grid away from
        // the cell ids.
        if (cell.tagName() != QLatin1String("DataCell"))
            continue;
        ++column;
        const QString keyword = cell.attribute(QStringLiteral("TYPE"));
        Element* element = nullptr;
        if (keyword != QLatin1String("ROWSPLIT") && factory)
            element = factory->createTableCellElement(cell, keyword, parentNode, this);
        if (element)
            element->setTableCellId(cellId(id(), rowNumber, column));
        cells.append(element);
    }
    _rows.append(cells);
}

int TableElement::columnTitleOffset() const
{
    qsizetype widest = 0;
    for (const QList<Element*>& row : _rows)
        widest = qMax(widest, row.size());
    return _columnTitles.size() == widest + 1 ? 0 : 1;
}

QWidget* TableElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "TableElement::createControl:\n%s", qPrintable(toString()));
    auto* table = new QGroupBox(parent);
    table->setObjectName(QStringLiteral("table"));
    table->setTitle(MnemonicRegistry::mark(parent, table, title()));
    table->setAccessibleName(title());
    auto* grid = new QGridLayout(table);
    grid->setHorizontalSpacing(ControlBox::kSpacing);
    const int offset = columnTitleOffset();
    for (int i = 0; i < _columnTitles.size(); ++i) {
        auto* header = new QLabel(_columnTitles.at(i), table);
        header->setObjectName(QStringLiteral("columnTitle"));
        header->setTextFormat(Qt::PlainText);
        header->setAlignment(Qt::AlignCenter);
        // A long title takes two lines rather than widening its column past the panel.
        header->setWordWrap(true);
        QFont font = header->font();
        font.setBold(true);
        header->setFont(font);
        grid->addWidget(header, 0, i + offset);
    }
    for (int r = 0; r < _rows.size(); ++r) {
        auto* rowTitle = new QLabel(_rowTitles.value(r), table);
        rowTitle->setObjectName(QStringLiteral("rowTitle"));
        rowTitle->setTextFormat(Qt::PlainText);
        rowTitle->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(rowTitle, r + 1, 0);
        QWidget* first = nullptr;
        for (int c = 0; c < _rows.at(r).size(); ++c) {
            Element* cell = _rows.at(r).at(c);
            if (!cell)
                continue;
            QWidget* widget = createCellControl(cell, table, r, c);
            // A bare check box sits under the middle of its column title.
            const auto* box = qobject_cast<QCheckBox*>(cell->control());
            grid->addWidget(widget, r + 1, c + 1,
                            box && box->text().isEmpty() ? Qt::AlignCenter : Qt::Alignment());
            if (!first)
                first = cell->control() ? cell->control() : widget;
        }
        if (first && !rowTitle->text().isEmpty()) {
            rowTitle->setText(MnemonicRegistry::mark(table, rowTitle, rowTitle->text()));
            rowTitle->setBuddy(first);
        }
    }
    setControl(table);
    checkConstraints(nullptr, true);
    return table;
}

QWidget* TableElement::createCellControl(Element* cell, QWidget* grid, int row, int column)
{
    QWidget* widget = cell->createControl(grid);
    if (QLabel* caption = ControlBox::label(widget); caption && ControlBox::boxOf(cell->control()))
        caption->hide();
    // Name the input after its place: the row's title and the column's.
    const QString columnTitle = _columnTitles.value(column + 1 - columnTitleOffset());
    const QStringList place = QStringList({_rowTitles.value(row), columnTitle})
                                  .filter(QRegularExpression(QStringLiteral("\\S")));
    if (QWidget* input = cell->control(); input && !place.isEmpty())
        input->setAccessibleName(place.join(QStringLiteral(", ")));
    // Under a column title a check box's own text only repeats it, and would widen the table
    // beyond the panel.
    if (auto* box = qobject_cast<QCheckBox*>(cell->control()); box && !columnTitle.isEmpty()) {
        box->setToolTip(box->text().remove(QLatin1Char('&')));
        box->setText(QString());
    }
    return widget;
}

void TableElement::deleteControl()
{
    for (const QList<Element*>& row : std::as_const(_rows)) {
        for (Element* cell : row) {
            if (cell)
                cell->deleteControl();
        }
    }
    Element::deleteControl();
}

bool TableElement::iterateElements(ElementVisitor visitor, void* data)
{
    for (const QList<Element*>& row : std::as_const(_rows)) {
        for (Element* cell : row) {
            if (cell && !cell->iterateElements(visitor, data))
                return false;
        }
    }
    return true;
}

void TableElement::connectSignals(QObject* receiver)
{
    Element::connectSignals(receiver);
    for (const QList<Element*>& row : std::as_const(_rows)) {
        for (Element* cell : row) {
            if (cell)
                cell->connectSignals(receiver);
        }
    }
}

bool TableElement::translateElement(const Translator& translator)
{
    Element::translateElement(translator);
    for (const QList<Element*>& row : std::as_const(_rows)) {
        for (Element* cell : row) {
            if (cell)
                cell->translateElement(translator);
        }
    }
    return true;
}

Element* TableElement::findElement(const QString& id)
{
    if (id == this->id())
        return this;
    for (const QList<Element*>& row : std::as_const(_rows)) {
        for (Element* cell : row) {
            if (!cell)
                continue;
            if (Element* found = cell->findElement(id))
                return found;
        }
    }
    return nullptr;
}
