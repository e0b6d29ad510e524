#include "ui/SettingsPanel.h"

#include "app/Log.h"
#include "elements/Element.h"
#include "ui/ElementHelp.h"
#include "ui/SubgroupLinks.h"

#include <QCoreApplication>
#include <QVBoxLayout>

namespace {

// Controls made at a time: a few dozen milliseconds of work, so the window stays responsive
// between blocks, and more than any ordinary group holds, so such a group opens whole.
constexpr int kBlock = 256;

} // namespace

SettingsPanel::SettingsPanel(QWidget* parent)
    : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::StyledPanel);
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("panel"));
    _content = frame;
    _layout = new QVBoxLayout(_content);
    // The frame grows to take a new block before the blocks are laid out: laid out first, in
    // the old height, each new block would squeeze every block above it.
    _layout->setSizeConstraint(QLayout::SetMinimumSize);
    _layout->addStretch(1);
    setWidget(_content);
    _builder.setInterval(0);
    connect(&_builder, &QTimer::timeout, this, [this] { buildBlock(kBlock); });
}

SettingsPanel::~SettingsPanel()
{
    clear();
}

void SettingsPanel::showGroup(Element* group, const QList<Element*>& members,
                              const std::function<bool(const Element*)>& startsHidden)
{
    clear();
    _group = group;
    _startsHidden = startsHidden;
    _waiting.reserve(members.size());
    for (Element* member : members)
        _waiting.append(member);
    buildBlock(kBlock);
    if (!isComplete()) {
        TAV_LOG(9, "SettingsPanel: %lld of %lld controls made, the rest follow",
                static_cast<long long>(_next), static_cast<long long>(_waiting.size()));
        viewport()->setCursor(Qt::BusyCursor);
        _builder.start();
    }
}

void SettingsPanel::showLinks(Element* group, const QList<Element*>& subgroups)
{
    clear();
    _group = group;
    auto* links = new SubgroupLinks(subgroups, _content);
    connect(links, &SubgroupLinks::chosen, this, &SettingsPanel::subgroupChosen);
    _layout->insertWidget(0, links);
    links->show();
    emit controlsAdded(links);
}

void SettingsPanel::clear()
{
    _builder.stop();
    for (int i = 0; i < _next; ++i) {
        if (_waiting[i])
            _waiting[i]->deleteControl();
    }
    // What is left are the emptied blocks, and the stretch that keeps the controls at the top.
    while (_layout->count() > 1) {
        QLayoutItem* item = _layout->takeAt(0);
        delete item->widget();
        delete item;
    }
    _waiting.clear();
    _next = 0;
    _group = nullptr;
    viewport()->unsetCursor();
}

QWidget* SettingsPanel::controlOf(Element* element)
{
    const int index = _waiting.indexOf(element, _next);
    while (index >= 0 && _next <= index) {
        buildBlock(kBlock);
        QCoreApplication::sendPostedEvents();
    }
    return element ? element->control() : nullptr;
}

void SettingsPanel::buildBlock(int count)
{
    auto* block = new QWidget(_content);
    block->setObjectName(QStringLiteral("panelBlock"));
    auto* layout = new QVBoxLayout(block);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(_layout->spacing());
    for (int made = 0; made < count && _next < _waiting.size(); ++_next) {
        Element* member = _waiting[_next];
        QWidget* control = member ? member->createControl(block) : nullptr;
        if (!control)
            continue;
        ElementHelp::applyToControl(member, control);
        layout->addWidget(control);
        if (_startsHidden && _startsHidden(member))
            control->hide();
        ++made;
    }
    if (layout->count() == 0) {
        delete block;
    } else {
        _layout->insertWidget(_layout->count() - 1, block);
        block->show();
        emit controlsAdded(block);
    }
    finishIfComplete();
}

void SettingsPanel::finishIfComplete()
{
    if (!isComplete())
        return;
    _builder.stop();
    viewport()->unsetCursor();
}
