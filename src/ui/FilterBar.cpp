#include "ui/FilterBar.h"

#include "ui/TreeFilter.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

FilterBar::FilterBar(QTreeWidget* tree, QWidget* parent)
    : QWidget(parent)
    , _tree(tree)
    , _filter(new TreeFilter(tree))
    , _field(new QLineEdit(this))
    , _changedOnly(new QCheckBox(tr("Changed o&nly"), this))
{
    setObjectName(QStringLiteral("filterBar"));
    _field->setObjectName(QStringLiteral("filterField"));
    _field->setPlaceholderText(tr("Find a setting (Ctrl+F)"));
    _field->setAccessibleName(tr("Find a setting"));
    _field->setClearButtonEnabled(true);
    _field->installEventFilter(this);
    _changedOnly->setObjectName(QStringLiteral("changedOnly"));
    _changedOnly->setToolTip(tr("Show only the settings with changes not yet sent"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_field, 1);
    layout->addWidget(_changedOnly);

    connect(_field, &QLineEdit::textChanged, _filter, &TreeFilter::setText);
    connect(_changedOnly, &QCheckBox::toggled, _filter, &TreeFilter::setChangedOnly);
    auto* find = new QShortcut(QKeySequence::Find, parent);
    connect(find, &QShortcut::activated, this, [this] {
        _field->setFocus(Qt::ShortcutFocusReason);
        _field->selectAll();
    });
}

bool FilterBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == _field && event->type() == QEvent::FocusIn)
        _filter->prepare();
    if (watched != _field || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
        if (_field->text().isEmpty())
            return false;
        _field->clear();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        focusFirstMatch();
        return true;
    default:
        return false;
    }
}

void FilterBar::focusFirstMatch()
{
    QTreeWidgetItemIterator it(_tree, QTreeWidgetItemIterator::NotHidden |
                                          QTreeWidgetItemIterator::NoChildren);
    if (*it)
        _tree->setCurrentItem(*it);
    _tree->setFocus(Qt::OtherFocusReason);
}
