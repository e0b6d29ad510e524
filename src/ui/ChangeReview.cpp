#include "ui/ChangeReview.h"

#include "ui/DialogMemory.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const char kAskKey[] = "review/ask";

QLabel* plainLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setText(text);
    return label;
}

} // namespace

ChangeReview::ChangeReview(const QString& model, const QList<Change>& changes, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("changeReview"));
    setWindowTitle(tr("Review changes"));
    setSizeGripEnabled(true);
    auto* layout = new QVBoxLayout(this);
    addList(tr("These settings will be sent to %1:").arg(model), false, changes);
    addList(tr("These settings will be cleared (sent without a value):"), true, changes);

    auto* ask = new QCheckBox(tr("Don't ask again"), this);
    ask->setObjectName(QStringLiteral("dontAsk"));
    layout->addWidget(ask);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* apply = buttons->addButton(tr("&Apply"), QDialogButtonBox::AcceptRole);
    apply->setObjectName(QStringLiteral("reviewApply"));
    buttons->addButton(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("reviewCancel"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this, ask] {
        if (ask->isChecked())
            setWanted(false);
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(640, 360);
}

QTreeWidget* ChangeReview::addList(const QString& heading, bool cleared,
                                   const QList<Change>& changes)
{
    QList<QTreeWidgetItem*> rows;
    for (const Change& change : changes) {
        if (change.clears != cleared)
            continue;
        // Item texts are never interpreted as markup.
        rows << new QTreeWidgetItem(
            QStringList{change.title, change.group,
                        cleared ? change.before : tr("%1 → %2").arg(change.before, change.after)});
    }
    if (rows.isEmpty())
        return nullptr;
    layout()->addWidget(plainLabel(heading, this));
    auto* list = new QTreeWidget(this);
    list->setObjectName(cleared ? QStringLiteral("clearedList") : QStringLiteral("changeList"));
    list->setRootIsDecorated(false);
    list->setHeaderLabels({tr("Setting"), tr("Group"), cleared ? tr("Value now") : tr("Change")});
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->addTopLevelItems(rows);
    layout()->addWidget(list);
    return list;
}

bool ChangeReview::isWanted()
{
    return QSettings(DialogMemory::organisation(), DialogMemory::application())
        .value(QLatin1String(kAskKey), true)
        .toBool();
}

void ChangeReview::setWanted(bool wanted)
{
    QSettings(DialogMemory::organisation(), DialogMemory::application())
        .setValue(QLatin1String(kAskKey), wanted);
}

bool ChangeReview::confirm(const QString& model, const QList<Change>& changes, QWidget* parent)
{
    if (changes.isEmpty() || !isWanted())
        return true;
    ChangeReview review(model, changes, parent);
    return review.exec() == QDialog::Accepted;
}
