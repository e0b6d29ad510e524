#pragma once

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QTreeWidget;
class TreeFilter;

// The find field above the parameter tree and its "Changed only" toggle. Ctrl+F anywhere in
// the window goes to the field; Escape there clears it (and, once empty, closes as usual);
// Return or Down moves to the first setting left in the tree.
class FilterBar : public QWidget
{
    Q_OBJECT

public:
    FilterBar(QTreeWidget* tree, QWidget* parent);

    TreeFilter* filter() const { return _filter; }
    QLineEdit* field() const { return _field; }
    QCheckBox* changedOnly() const { return _changedOnly; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void focusFirstMatch();

    QTreeWidget* _tree;
    TreeFilter* _filter;
    QLineEdit* _field;
    QCheckBox* _changedOnly;
};
