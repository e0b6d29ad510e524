#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QVector>

class QTreeWidget;
class QTreeWidgetItem;
class SettingsViewItem;

// Narrows the parameter tree to the settings whose title, id, shown value or description
// holds a text (any case), and optionally to those with pending changes, keeping the group
// rows above them. A group whose own title or id holds the text keeps all its rows. Rows the
// device's dependencies hide stay hidden whatever matches.
class TreeFilter : public QObject
{
    Q_OBJECT

public:
    explicit TreeFilter(QTreeWidget* tree);

    QString text() const { return _text; }
    bool changedOnly() const { return _changedOnly; }
    bool isActive() const { return !_needle.isEmpty() || _changedOnly; }
    // How many settings the last narrowing left in the tree.
    int matchCount() const { return _matchCount; }

    // Indexes the tree's texts ahead of the first keystroke (the find field got focus).
    void prepare();

public slots:
    void setText(const QString& text);
    void setChangedOnly(bool on);
    // Narrows again on the next turn of the event loop: values or visibility changed.
    void refreshLater();

private:
    struct Row
    {
        SettingsViewItem* item;
        int parent;    // index in _rows, -1 at the top
        QString hay;   // title, id and description, case-folded
        QString value; // the shown value, case-folded
        bool group;
    };

    void apply();
    void index();
    void forgetRows();
    void valueChanged(QTreeWidgetItem* item, int column);
    bool matches(const Row& row) const;
    // The rows to test: the last matches when the new text only adds to the last one.
    QVector<int> candidates() const;
    void show(const QVector<bool>& shown);
    void expandShownGroups(const QVector<bool>& shown);
    void restoreExpansion();

    QTreeWidget* _tree;
    QVector<Row> _rows;
    QHash<const QTreeWidgetItem*, int> _indexOf;
    bool _indexed = false;
    QString _text;
    QString _needle;
    bool _changedOnly = false;
    bool _refreshPending = false;

    // What the last narrowing found, for narrowing further as the text grows.
    QVector<int> _matches;
    QString _matchedNeedle;
    bool _matchesValid = false;
    int _matchCount = 0;
    // The groups' expansion before the filter opened them, put back when it ends.
    QVector<bool> _expandedBefore;
};
