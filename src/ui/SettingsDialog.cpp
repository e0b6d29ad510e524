#include "ui/SettingsDialog.h"

#include "app/Configurator.h"
#include "app/Log.h"
#include "elements/ButtonElement.h"
#include "elements/ComplexElement.h"
#include "elements/ConcreteElement.h"
#include "elements/ConstraintEvaluator.h"
#include "elements/DestructiveAction.h"
#include "elements/Element.h"
#include "elements/FactoryElement.h"
#include "elements/FormElement.h"
#include "elements/SecretSetting.h"
#include "ui/BackupTransfer.h"
#include "ui/ChangeReview.h"
#include "ui/ClearingQuestion.h"
#include "ui/DialogMemory.h"
#include "ui/FilterBar.h"
#include "ui/HelpViewer.h"
#include "ui/InvalidEntryWarning.h"
#include "ui/PendingQuestion.h"
#include "ui/SettingsPanel.h"
#include "ui/SettingsViewItem.h"
#include "ui/TreeFilter.h"
#include "xml/ElementType.h"

#include <QApplication>
#include <QCheckBox>
#include <QFont>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QResizeEvent>
#include <QSet>
#include <QThread>
#include <QTimer>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

namespace {

constexpr int kFoldSteps = 25;
constexpr int kFoldPauseMs = 2;
// How long the line beside Apply says what was sent.
constexpr int kStatusMs = 5000;

struct InvalidSearch
{
    Element* found = nullptr;
};

bool findInvalid(Element* element, void* data)
{
    if (!element->isConcrete() || element->isValid())
        return true;
    static_cast<InvalidSearch*>(data)->found = element;
    return false;
}

bool countWrongSettings(Element* element, void* data)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (concrete && concrete->current() != concrete->initial()) {
        TAV_LOG(9, "id='%s' initial='%s' current='%s'", qPrintable(concrete->id()),
                qPrintable(SecretSetting::masked(concrete, concrete->initial())),
                qPrintable(SecretSetting::masked(concrete, concrete->current())));
        *static_cast<QString*>(data) += concrete->shownName() + QLatin1Char('\n');
    }
    return true;
}

// The enabled settings whose emptied value waits for the user's word before it is sent.
bool collectPendingClearing(Element* element, void* data)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (concrete && concrete->isEnabled() && concrete->isClearingPending())
        static_cast<QList<ConcreteElement*>*>(data)->append(concrete);
    return true;
}

// Puts the factory value back into a value element that has one, as if the user had chosen
// it, and shows it in the control without the control reporting it again.
bool restoreFactory(Element* element, void*)
{
    auto* factory = qobject_cast<FactoryElement*>(element);
    if (!factory || !factory->hasFactory() || factory->factory().isNull())
        return true;
    factory->valueChange(factory->factory());
    factory->setControlValue(factory->factory());
    return true;
}

// Gathers the settings whose value differs from the device's, by title, with every element
// above them.
struct ChangeSearch
{
    QSet<const Element*> marked;
    QStringList titles;
};

bool findChanged(Element* element, void* data)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (!concrete || !concrete->isChanged())
        return true;
    auto* search = static_cast<ChangeSearch*>(data);
    search->titles.append(concrete->title());
    for (const Element* e = element; e && !search->marked.contains(e); e = e->parentElement())
        search->marked.insert(e);
    return true;
}

// A list of titles for a message, cut short when it would fill the screen.
QString titleList(const QStringList& titles)
{
    constexpr int kShown = 10;
    QString text = titles.mid(0, kShown).join(QLatin1Char('\n'));
    if (titles.size() > kShown)
        text += QLatin1Char('\n') + QCoreApplication::translate("SettingsDialog", "and %1 more")
                                        .arg(titles.size() - kShown);
    return text;
}

// Gathers the value each setting shows while it holds the device's value.
bool recordShown(Element* element, void* data)
{
    if (auto* concrete = qobject_cast<ConcreteElement*>(element))
        static_cast<QHash<const Element*, QString>*>(data)->insert(concrete,
                                                                   concrete->displayValue());
    return true;
}

struct ReviewSearch
{
    const QHash<const Element*, QString>* shown;
    QList<ChangeReview::Change> changes;
    QList<ConcreteElement*> clearing;
};

// The group a setting is listed under: a control standing for its parent's row belongs to the
// parent's group.
QString groupTitle(const Element* element)
{
    const Element* parent = element->parentElement();
    if (parent && parent->title() == element->title())
        parent = parent->parentElement();
    return parent ? parent->title() : QString();
}

bool collectChange(Element* element, void* data)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (!concrete || !concrete->isChanged())
        return true;
    auto* search = static_cast<ReviewSearch*>(data);
    ChangeReview::Change change{concrete->title(), groupTitle(concrete),
                                search->shown->value(concrete, concrete->initial()),
                                concrete->displayValue(), concrete->displayValue().isEmpty()};
    if (concrete->isEnabled() && concrete->isClearingPending()) {
        search->clearing << concrete;
        change.clears = true;
    }
    if (SecretSetting::isSecret(concrete)) {
        const QString mask = QString::fromUtf8(SecretSetting::mask());
        change.before = change.before.isEmpty() ? QString() : mask;
        change.after = change.after.isEmpty() ? QString() : mask;
    }
    search->changes << change;
    return true;
}

// What Default would change: settings whose factory value differs from the value they have.
struct FactorySearch
{
    int settings = 0;
    QSet<const Element*> groups;
};

bool countFactoryChanges(Element* element, void* data)
{
    auto* factory = qobject_cast<FactoryElement*>(element);
    if (!factory || factory->factory().isNull() || factory->factory() == factory->current())
        return true;
    auto* search = static_cast<FactorySearch*>(data);
    ++search->settings;
    search->groups.insert(factory->parentElement());
    return true;
}

FormElement* enclosingForm(Element* element)
{
    for (Element* e = element ? element->parentElement() : nullptr; e; e = e->parentElement()) {
        if (auto* form = qobject_cast<FormElement*>(e))
            return form;
    }
    return nullptr;
}

// Groups show their members in the panel; a popup form is a member (it shows its button).
bool isPanelGroup(const Element* element)
{
    return element->isComplex() && element->type() != etForm;
}

} // namespace

SettingsDialog::SettingsDialog(QWidget* parent, const char* name, Qt::WindowFlags flags)
    : SettingsDialogBase(parent, flags)
{
    if (name)
        setObjectName(QString::fromLatin1(name));

    auto* frameLayout = new QVBoxLayout(paramFrame);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    _panel = new SettingsPanel(paramFrame);
    _panel->setObjectName(QStringLiteral("panelScroll"));
    frameLayout->addWidget(_panel);

    // The find field stands above the tree, first in the tree's column.
    _filterBar = new FilterBar(paramList, this);
    auto* treeColumn = new QVBoxLayout;
    const int treeAt = listsLayout->indexOf(paramList);
    listsLayout->removeWidget(paramList);
    treeColumn->addWidget(_filterBar);
    treeColumn->addWidget(paramList);
    listsLayout->insertLayout(treeAt, treeColumn);
    QWidget::setTabOrder(slider, _filterBar->field());
    QWidget::setTabOrder(_filterBar->field(), _filterBar->changedOnly());
    QWidget::setTabOrder(_filterBar->changedOnly(), paramList);
    connect(_panel, &SettingsPanel::controlsAdded, this, &SettingsDialog::chainPanelFocus);
    connect(_panel, &SettingsPanel::subgroupChosen, this, [this](Element* subgroup) {
        if (SettingsViewItem* row = findParamItem(subgroup->id()))
            paramList->setCurrentItem(row);
    });

    paramList->header()->setSectionResizeMode(0, QHeaderView::Interactive);
    paramList->header()->setStretchLastSection(true);
    paramList->setColumnWidth(0, 220);
    _treeMinWidth = paramList->minimumWidth();
    // Extra width goes to the panel, whose controls need it; the tree keeps its width.
    listsLayout->setStretchFactor(paramFrame, 1);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);

    // The line beside Apply shows device and model names: never as markup.
    pendingLabel->setTextFormat(Qt::PlainText);
    connect(slider, &QPushButton::clicked, this, &SettingsDialog::slider_clicked);
    connect(paramList, &QTreeWidget::currentItemChanged, this,
            &SettingsDialog::paramList_selectionChanged);
    connect(favoriteList, &QTreeWidget::currentItemChanged, this,
            &SettingsDialog::favoriteList_selectionChanged);
    connect(paramList, &QTreeWidget::itemActivated, this, &SettingsDialog::paramList_activated);
    connect(applyBtn, &QPushButton::clicked, this, &SettingsDialog::applyBtn_clicked);
    connect(defBtn, &QPushButton::clicked, this, &SettingsDialog::defBtn_clicked);
    connect(closeBtn, &QPushButton::clicked, this, &SettingsDialog::closeBtn_clicked);
    connect(exportBtn, &QPushButton::clicked, this,
            [this] { BackupTransfer::exportSettings(this, _root, _devName); });
    connect(importBtn, &QPushButton::clicked, this,
            [this] { BackupTransfer::importSettings(this, _root, _devName); });
    connect(paramList, &QTreeWidget::itemExpanded, this,
            [this](QTreeWidgetItem* item) { item->setIcon(0, _folderOpen); });
    connect(paramList, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { item->setIcon(0, _folder); });
}

SettingsDialog::~SettingsDialog()
{
    _panel->clear();
}

QWidget* SettingsDialog::panel() const
{
    return _panel->content();
}

Element* SettingsDialog::shownGroup() const
{
    return _panel->group();
}

QWidget* SettingsDialog::controlOf(Element* element) const
{
    return _panel->controlOf(element);
}

void SettingsDialog::initialize(Configurator* configurator, const QString& devName)
{
    _configurator = configurator;
    _devName = devName;
    _root = configurator ? configurator->rootElement() : nullptr;
    if (!devName.isEmpty())
        setWindowTitle(tr("%1 - %2").arg(devName, Configurator::applicationTitle()));
    _folder.load(QStringLiteral(":/images/folder.png"));
    _folderOpen.load(QStringLiteral(":/images/folder_open.png"));
    favoriteList->clear();
    paramList->clear();
    favoriteList->setSortingEnabled(false);
    paramList->setSortingEnabled(false);
    _selected = 0;
    connect(helpBtn, &QPushButton::clicked, this, &SettingsDialog::helpBtn_clicked,
            Qt::UniqueConnection);
    fillSettings(_root);
    validateSettings(_root);
    restoreLayout();
}

// The size and fold state this user last left the dialog in for this model.
void SettingsDialog::restoreLayout()
{
    const DialogMemory memory(_devName);
    const QSize size = memory.size();
    if (size.isValid())
        resize(size.expandedTo(minimumSizeHint()));
    if (memory.folded() && !favoriteList->isHidden()) {
        _foldWidth =
            favoriteList->isVisible() ? favoriteList->width() : favoriteList->maximumWidth();
        favoriteList->hide();
        slider->setText(QStringLiteral(">"));
    }
}

void SettingsDialog::done(int result)
{
    DialogMemory(_devName).save(isMaximized() ? normalGeometry().size() : size(),
                                favoriteList->isHidden());
    SettingsDialogBase::done(result);
}

void SettingsDialog::fillSettings(Element* root)
{
    _panel->clear();
    favoriteList->clear();
    paramList->clear();
    _paramItems.clear();
    if (!root)
        return;
    favoriteList->setUpdatesEnabled(false);
    paramList->setUpdatesEnabled(false);
    root->addToFavoriteList(favoriteList);
    root->addToParamList(paramList);
    root->connectSignals(this);
    ConstraintEvaluator::evaluateAll(root); // rows start hidden and controls disabled as declared

    for (QTreeWidgetItemIterator it(paramList); *it; ++it) {
        auto* item = static_cast<SettingsViewItem*>(*it);
        if (item->element() && !_paramItems.contains(item->element()->id()))
            _paramItems.insert(item->element()->id(), item);
        if (item->childCount() > 0)
            item->setIcon(0, item->isExpanded() ? _folderOpen : _folder);
    }
    for (int i = 0; i < favoriteList->topLevelItemCount(); ++i)
        favoriteList->topLevelItem(i)->setIcon(0, _folder);
    favoriteList->setUpdatesEnabled(true);
    paramList->setUpdatesEnabled(true);
    if (paramList->topLevelItemCount() > 0)
        paramList->setCurrentItem(paramList->topLevelItem(0));
    recordDeviceValues();
    markChanges();
}

void SettingsDialog::recordDeviceValues()
{
    _deviceShown.clear();
    if (_root)
        _root->iterateElements(recordShown, &_deviceShown);
}

bool SettingsDialog::reviewChanges(Element* under)
{
    // Without the review, emptied values still need the user's word before they are cleared.
    if (!ChangeReview::isWanted())
        return confirmClearing(under);
    ReviewSearch search{&_deviceShown, {}, {}};
    if (under)
        under->iterateElements(collectChange, &search);
    if (!ChangeReview::confirm(_devName, search.changes, this))
        return false;
    for (ConcreteElement* element : std::as_const(search.clearing))
        element->confirmClearing();
    return true;
}

// Bold rows for the changed settings and the groups that hold them; the count beside Apply.
void SettingsDialog::markChanges()
{
    if (_holdMarks)
        return;
    ChangeSearch search;
    if (_root)
        _root->iterateElements(findChanged, &search);
    for (QTreeWidgetItemIterator it(paramList); *it; ++it) {
        auto* item = static_cast<SettingsViewItem*>(*it);
        const bool changed = search.marked.contains(item->element());
        QFont font = item->font(0);
        if (font.bold() != changed) {
            font.setBold(changed);
            item->setFont(0, font);
        }
    }
    _pending = int(search.titles.size());
    pendingLabel->setText(_pending == 0   ? _status
                          : _pending == 1 ? tr("1 pending change")
                                          : tr("%1 pending changes").arg(_pending));
}

void SettingsDialog::validateSettings(Element* root)
{
    TAV_LOG(9, "SettingsDialog::validateSettings()");
    if (!root)
        return;
    QString wrong;
    root->iterateElements(countWrongSettings, &wrong);
    if (wrong.isEmpty())
        return;
    const QString text =
        tr("The following settings cannot be validated and will have empty values:\n\n") + wrong;
    // Before the dialog is on screen, the report waits for it so that it opens over it.
    if (isVisible())
        QMessageBox::warning(this, tr("Error"), text);
    else
        QTimer::singleShot(0, this,
                           [this, text] { QMessageBox::warning(this, tr("Error"), text); });
}

void SettingsDialog::updateChanges(const QString& id)
{
    if (id.isEmpty() && _root) {
        _root->iterateElements(acceptChanges, nullptr);
        recordDeviceValues();
    }
    markChanges();
}

SettingsViewItem* SettingsDialog::findFavoriteItem(const QString& id) const
{
    for (int i = 0; i < favoriteList->topLevelItemCount(); ++i) {
        auto* item = static_cast<SettingsViewItem*>(favoriteList->topLevelItem(i));
        if (item->element() && item->element()->id() == id)
            return item;
    }
    return nullptr;
}

SettingsViewItem* SettingsDialog::findParamItem(const QString& id) const
{
    return _paramItems.value(id);
}

Element* SettingsDialog::senderElement() const
{
    return qobject_cast<Element*>(sender());
}

// A control that stands for its parent's row reports under the parent's id.
SettingsViewItem* SettingsDialog::rowOf(Element* element) const
{
    QString id = element->id();
    Element* parent = element->parentElement();
    if (parent && parent->title() == element->title())
        id = parent->id();
    return findParamItem(id);
}

void SettingsDialog::elementChanged(const QString&)
{
    Element* element = senderElement();
    if (!element)
        return;
    TAV_LOG(9, "SettingsDialog elementChanged received from %s [%p]", qPrintable(element->id()),
            static_cast<void*>(element));
    if (element->type() == etButton) {
        buttonClicked(element->id());
        return;
    }
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (!concrete)
        return;
    if (SettingsViewItem* item = rowOf(element))
        item->setText(1, SecretSetting::shownValue(concrete));
    applyBtn->setEnabled(true);
    markChanges();
}

void SettingsDialog::elementReset()
{
    auto* concrete = qobject_cast<ConcreteElement*>(senderElement());
    if (!concrete)
        return;
    if (SettingsViewItem* item = rowOf(concrete)) {
        item->setText(1, QString());
        item->setText(1, SecretSetting::shownValue(concrete));
    }
    markChanges();
}

void SettingsDialog::changeVisibility(bool visible)
{
    Element* element = senderElement();
    if (!element)
        return;
    TAV_LOG(9, "SettingsDialog::changeVisibility(%s) for %s", visible ? "true" : "false",
            qPrintable(element->id()));
    if (SettingsViewItem* item = findParamItem(element->id())) {
        item->setDeviceHidden(!visible);
        _filterBar->filter()->refreshLater(); // its group may have to show or go
    }
}

bool SettingsDialog::sendChanges(const QString& id)
{
    if (!_configurator)
        return false;
    Element* scope = !id.isEmpty() && _root ? _root->findElement(id) : _root;
    ChangeSearch search;
    if (scope)
        scope->iterateElements(findChanged, &search);
    const QStringList& pending = search.titles;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool accepted = _configurator->applySettings(id);
    QApplication::restoreOverrideCursor();
    if (accepted) {
        reportSent(qobject_cast<ButtonElement*>(scope), pending.size());
        return true;
    }
    const QString reason = _configurator->exchangeProblem();
    QString text = tr("The printer did not accept the changes, or could not be "
                      "reached.\nYour changes are kept: check the printer and "
                      "try again.");
    if (!reason.isEmpty())
        text += QLatin1String("\n\n") + reason;
    if (!pending.isEmpty())
        text += QLatin1String("\n\n") + tr("Not sent:") + QLatin1Char('\n') + titleList(pending);
    QMessageBox box(QMessageBox::Critical, tr("Error"), text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    return false;
}

// For a few seconds the line beside Apply says what reached the printer.
void SettingsDialog::reportSent(const ButtonElement* button, int settings)
{
    if (button)
        _status = tr("%1 sent").arg(button->title());
    else if (settings == 1)
        _status = tr("1 setting sent to %1").arg(_devName);
    else if (settings > 1)
        _status = tr("%1 settings sent to %2").arg(settings).arg(_devName);
    else
        return;
    const QString shown = _status;
    QTimer::singleShot(kStatusMs, this, [this, shown] {
        if (_status != shown)
            return;
        _status.clear();
        markChanges();
    });
    markChanges();
}

bool SettingsDialog::confirmAction(const Element* button)
{
    QMessageBox box(
        QMessageBox::Warning, tr("Confirm"),
        tr("\"%1\" cannot be undone.\nSend it to %2 now?").arg(button->title(), _devName),
        QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton* go = box.addButton(button->title(), QMessageBox::AcceptRole);
    go->setObjectName(QStringLiteral("confirmAction"));
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    return box.clickedButton() == go;
}

void SettingsDialog::buttonClicked(const QString& id)
{
    const Element* button = _root ? _root->findElement(id) : nullptr;
    if (DestructiveAction::isDestructive(button) && !confirmAction(button))
        return;
    if (sendChanges(id))
        updateChanges(id);
}

void SettingsDialog::popupApplyClicked()
{
    auto* form = qobject_cast<FormElement*>(senderElement());
    if (!form)
        return;
    if (!reviewChanges(form)) {
        form->setApplyRefused(); // the form stays open with its edits
        return;
    }
    if (sendChanges(form->id())) {
        form->iterateElements(recordShown, &_deviceShown);
        // The form takes its values as the device's once this returns.
        QTimer::singleShot(0, this, &SettingsDialog::markChanges);
    } else
        form->setApplyRefused(); // the form keeps its edits pending
}

void SettingsDialog::phoneBookClicked(const QString&)
{
    if (_configurator)
        _configurator->phoneBookStart();
}

void SettingsDialog::emailBookClicked(const QString&)
{
    if (_configurator)
        _configurator->emailBookStart();
}

void SettingsDialog::addressBookClicked(const QString&)
{
    if (_configurator)
        _configurator->addressBookStart();
}

void SettingsDialog::wirelessSetupClicked(const QString&)
{
    if (_configurator)
        _configurator->wirelessSetupStart();
}

void SettingsDialog::inkTestPagePrintClicked(const QString& id)
{
    QObject* o = sender();
    TAV_ASSERT_TEXT(o && QString::fromLatin1(o->metaObject()->className()) ==
                             QLatin1String("InkTestPagePrintElement"),
                    "o->className() == QString(\"InkTestPagePrintElement\")");
    if (_configurator)
        _configurator->ijTestPagePrint(this, id);
}

void SettingsDialog::inkCartridgeCleanClicked(const QString& id)
{
    QObject* o = sender();
    TAV_ASSERT_TEXT(o && QString::fromLatin1(o->metaObject()->className()) ==
                             QLatin1String("InkCartridgeCleanElement"),
                    "o->className() == QString(\"InkCartridgeCleanElement\")");
    if (_configurator)
        _configurator->ijCartridgeClean(this, id);
}

void SettingsDialog::inkCartridgeAlignSFPClicked(const QString& id)
{
    QObject* o = sender();
    TAV_ASSERT_TEXT(o && QString::fromLatin1(o->metaObject()->className()) ==
                             QLatin1String("InkCartridgeAlignSFPElement"),
                    "o->className() == QString(\"InkCartridgeAlignSFPElement\")");
    const bool photoInk = o && o->property("hasPhotoInk").toBool();
    if (_configurator)
        _configurator->ijCartridgeAlignSFP(photoInk, this, id);
}

void SettingsDialog::inkCartridgeAlignMFPClicked(const QString& id)
{
    QObject* o = sender();
    TAV_ASSERT_TEXT(o && QString::fromLatin1(o->metaObject()->className()) ==
                             QLatin1String("InkCartridgeAlignMFPElement"),
                    "o->className() == QString(\"InkCartridgeAlignMFPElement\")");
    if (_configurator)
        _configurator->ijCartridgeAlignMFP(this, id);
}

void SettingsDialog::applyBtn_clicked()
{
    InvalidSearch search;
    if (_root)
        _root->iterateElements(findInvalid, &search);
    if (!search.found) {
        if (reviewChanges(_root) && sendChanges(QString())) {
            updateChanges(QString());
            applyBtn->setEnabled(false);
        }
        return;
    }
    InvalidEntryWarning::show(this, search.found);
    leadTo(search.found);
}

bool SettingsDialog::confirmClearing(Element* under)
{
    QList<ConcreteElement*> pending;
    if (under)
        under->iterateElements(collectPendingClearing, &pending);
    if (pending.isEmpty())
        return true;
    QStringList names;
    for (const ConcreteElement* element : std::as_const(pending))
        names.append(element->shownName());
    if (!ClearingQuestion::confirm(names, this))
        return false;
    for (ConcreteElement* element : std::as_const(pending))
        element->confirmClearing();
    return true;
}

void SettingsDialog::leadTo(Element* element)
{
    if (FormElement* form = enclosingForm(element)) {
        if (SettingsViewItem* item = findParamItem(form->id()))
            paramList->setCurrentItem(item);
        form->showForm();
        return;
    }
    for (Element* e = element; e; e = e->parentElement()) {
        TAV_LOG(9, "e=%p->id='%s'", static_cast<void*>(e), qPrintable(e->id()));
        if (SettingsViewItem* item = findParamItem(e->id())) {
            paramList->setCurrentItem(item);
            paramList->scrollToItem(item);
            if (QWidget* control = controlOf(element))
                control->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

void SettingsDialog::defBtn_clicked()
{
    Element* scope = askDefaultScope();
    if (!scope)
        return;
    _holdMarks = true;
    scope->iterateElements(restoreFactory, nullptr);
    _holdMarks = false;
    markChanges();
}

// Says what Default changes and lets the user choose all groups or the one shown; null when
// the user declines or nothing would change.
Element* SettingsDialog::askDefaultScope()
{
    FactorySearch all;
    if (_root)
        _root->iterateElements(countFactoryChanges, &all);
    if (all.settings == 0) {
        QMessageBox::information(this, tr("Default"),
                                 tr("Every setting already has the printer's factory value."));
        return nullptr;
    }
    FactorySearch here;
    if (shownGroup())
        shownGroup()->iterateElements(countFactoryChanges, &here);
    QMessageBox box(QMessageBox::Question, tr("Default"),
                    tr("Put settings back to the printer's factory values?\n\nAll groups: %1 "
                       "setting(s) in %2 group(s).")
                        .arg(all.settings)
                        .arg(all.groups.size()),
                    QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton* everywhere = box.addButton(tr("&All groups"), QMessageBox::AcceptRole);
    everywhere->setObjectName(QStringLiteral("defaultAll"));
    QPushButton* only = nullptr;
    if (here.settings > 0) {
        box.setText(
            box.text() + QLatin1Char('\n') +
            tr("Only \"%1\": %2 setting(s).").arg(shownGroup()->title()).arg(here.settings));
        only = box.addButton(tr("&Only this group"), QMessageBox::AcceptRole);
        only->setObjectName(QStringLiteral("defaultGroup"));
    }
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    if (box.clickedButton() == everywhere)
        return _root;
    return only && box.clickedButton() == only ? shownGroup() : nullptr;
}

// Escape, Close and the window's close button: pending changes are sent, dropped or kept
// as the user says.
void SettingsDialog::reject()
{
    if (_pending > 0) {
        const QMessageBox::StandardButton answer = PendingQuestion::ask(this, _pending);
        if (answer == QMessageBox::Cancel)
            return;
        if (answer == QMessageBox::Apply) {
            applyBtn_clicked();
            if (_pending > 0)
                return; // not sent: the user sees why and stays with the changes
        }
    }
    SettingsDialogBase::reject();
}

void SettingsDialog::closeBtn_clicked()
{
    reject();
}

void SettingsDialog::helpBtn_clicked()
{
    HelpViewer::showHelp(this);
}

void SettingsDialog::favoriteList_selectionChanged(QTreeWidgetItem* current)
{
    auto* item = static_cast<SettingsViewItem*>(current);
    if (!item)
        return;
    if (!item->node() && !item->element()) {
        TAV_LOG(9, "Logical error: favoriteList_selectionChanged");
        return;
    }
    SettingsViewItem* target = item->element() ? findParamItem(item->element()->id()) : nullptr;
    QTreeWidgetItem* row = target ? target : item->node();
    if (row && row != paramList->currentItem()) {
        paramList->setCurrentItem(row);
        paramList->scrollToItem(row);
    }
}

void SettingsDialog::paramList_selectionChanged(QTreeWidgetItem* current)
{
    auto* item = static_cast<SettingsViewItem*>(current);
    if (!item || !item->element())
        return;
    ++_selected;
    Element* element = item->element();
    showGroupOf(element);

    // Keep the favourites in step with the group being shown.
    const QString groupId = shownGroup() ? shownGroup()->id() : QString();
    SettingsViewItem* favourite = findFavoriteItem(groupId);
    for (Element* e = shownGroup(); !favourite && e; e = e->parentElement())
        favourite = findFavoriteItem(e->id());
    if (!favourite) {
        TAV_LOG(10, "findFavoriteItem() failure");
    } else if (favourite != favoriteList->currentItem()) {
        const QSignalBlocker blocker(favoriteList);
        favoriteList->setCurrentItem(favourite);
    }

    if (QWidget* control = controlOf(element))
        _panel->ensureWidgetVisible(control);
}

// Enter (or a double click) on a row moves into the setting's control.
void SettingsDialog::paramList_activated(QTreeWidgetItem* current)
{
    auto* item = static_cast<SettingsViewItem*>(current);
    QWidget* control = item && item->element() ? controlOf(item->element()) : nullptr;
    if (!control)
        return;
    QWidget* target = control->focusProxy() ? control->focusProxy() : control;
    if (!(target->focusPolicy() & Qt::TabFocus)) {
        const auto inner = control->findChildren<QWidget*>();
        const auto found = std::find_if(inner.cbegin(), inner.cend(), [](const QWidget* w) {
            return (w->focusPolicy() & Qt::TabFocus) && w->isEnabled() &&
                   w->isVisibleTo(w->window());
        });
        if (found != inner.cend())
            target = *found;
    }
    target->setFocus(Qt::OtherFocusReason);
}

// Tab runs from the parameter tree through the panel's controls to the dialog buttons.
// New controls join the end of the window's focus chain in the order they were made, which is
// the panel's order. So rather than placing each of them (every placement walks the chain,
// which made a large group quadratic), the dialog's own widgets that follow the parameter
// list move behind the last control of each block the panel adds, the help button first.
void SettingsDialog::chainPanelFocus(QWidget* block)
{
    QWidget* last = block;
    while (block->isAncestorOf(last->nextInFocusChain()))
        last = last->nextInFocusChain();
    for (QWidget* w : std::as_const(_focusFollowers)) {
        QWidget::setTabOrder(last, w);
        last = w;
    }
}

// The widgets Tab reaches after the parameter list, read while the panel is empty.
void SettingsDialog::findFocusFollowers()
{
    _focusFollowers = {helpBtn};
    for (QWidget* w = paramList->nextInFocusChain(); w != paramList && w != this;
         w = w->nextInFocusChain()) {
        if (w != helpBtn && (w->focusPolicy() & Qt::TabFocus) && !w->focusProxy() &&
            !paramList->isAncestorOf(w) && w->window() == this)
            _focusFollowers.append(w);
    }
    QWidget::setTabOrder(paramList, helpBtn);
}

void SettingsDialog::showGroupOf(Element* element)
{
    Element* group = isPanelGroup(element) ? element : element->parentElement();
    while (group && !isPanelGroup(group))
        group = group->parentElement();
    if (!group || group == shownGroup())
        return;
    QList<Element*> members;
    QList<Element*> subgroups;
    for (Element* child : static_cast<ComplexElement*>(group)->elements()) {
        const SettingsViewItem* row = findParamItem(child->id());
        if (!isPanelGroup(child))
            members.append(child);
        else if (row && !row->isHidden())
            subgroups.append(child);
    }
    _panel->clear();
    findFocusFollowers();
    if (members.isEmpty() && !subgroups.isEmpty()) {
        _panel->showLinks(group, subgroups);
        return;
    }
    _panel->showGroup(group, members, [this](const Element* member) {
        const SettingsViewItem* row = findParamItem(member->id());
        return row && row->isDeviceHidden();
    });
}

void SettingsDialog::slider_clicked()
{
    animateFold(!favoriteList->isHidden());
}

void SettingsDialog::animateFold(bool fold)
{
    const auto step = [this](int width) {
        favoriteList->setFixedWidth(width);
        layout()->activate();
        favoriteList->repaint();
        slider->repaint();
        paramList->repaint();
        QThread::msleep(kFoldPauseMs);
    };
    if (fold) {
        // The tree keeps its width: what the groups list frees goes to the panel.
        paramList->setFixedWidth(paramList->width());
        _foldWidth = favoriteList->width();
        for (int i = 1; i <= kFoldSteps; ++i)
            step(qRound(double(kFoldSteps - i) * _foldWidth / kFoldSteps));
        favoriteList->hide();
        slider->setText(QStringLiteral(">"));
    } else {
        favoriteList->show();
        QCoreApplication::processEvents();
        for (int i = 1; i <= kFoldSteps; ++i)
            step(qRound(double(_foldWidth) * i / kFoldSteps));
        paramList->setMinimumWidth(_treeMinWidth);
        paramList->setMaximumWidth(QWIDGETSIZE_MAX);
        slider->setText(QStringLiteral("<"));
    }
}

void SettingsDialog::resizeEvent(QResizeEvent* event)
{
    SettingsDialogBase::resizeEvent(event);
    if (logLevel < 11)
        return;
    QString dump;
    const auto widgets = findChildren<QWidget*>();
    for (const QWidget* w : widgets) {
        dump += QStringLiteral("%1 (%2): %3,%4 %5x%6\n")
                    .arg(w->objectName(), QString::fromLatin1(w->metaObject()->className()))
                    .arg(w->x())
                    .arg(w->y())
                    .arg(w->width())
                    .arg(w->height());
    }
    TAV_LOG(11, "SettingsDialog::resizeEvent: } dumpLayout:\n%s", qPrintable(dump));
}
