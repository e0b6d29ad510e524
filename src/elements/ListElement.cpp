#include "elements/ListElement.h"

#include "elements/ControlBox.h"
#include "elements/MnemonicRegistry.h"
#include "elements/PaperSizeParameter.h"
#include "elements/TraceLog.h"
#include "xml/ElementType.h"
#include "xml/Translator.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDomElement>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr int kRadioSpacing = 19;

} // namespace

ListElement::ListElement(const QDomElement& node, int type, const QDomNode* parentNode,
                         Element* parentElement)
    : FactoryElement(node, type, parentNode, parentElement)
{
    const QStringList disabled =
        node.attribute(QStringLiteral("DisabledItem")).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (QDomElement child = node.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (disabled.contains(child.tagName())) {
            TAV_LOG(10, "skipping disabled parameter '%s'", qPrintable(child.tagName()));
            continue;
        }
        if (type == etPaperSize)
            _parameters.append(new PaperSizeParameter(child));
        else
            _parameters.append(new Parameter(child));
    }
}

int ListElement::findParameterIndex(const QString& value) const
{
    int index = 0;
    for (const Parameter* parameter : _parameters) {
        if (!parameter->isVisible())
            continue;
        if (parameter->id() == value)
            return index;
        ++index;
    }
    return -1;
}

Parameter* ListElement::parameterAt(int index) const
{
    if (index < 0)
        return nullptr;
    for (Parameter* parameter : _parameters) {
        if (!parameter->isVisible())
            continue;
        if (index-- == 0)
            return parameter;
    }
    return nullptr;
}

Parameter* ListElement::findParameter(const QString& value) const
{
    for (Parameter* parameter : _parameters) {
        if (parameter->isVisible() && parameter->id() == value)
            return parameter;
    }
    return nullptr;
}

void ListElement::iterateParameters(ParameterFunction fn, void* data)
{
    for (Parameter* parameter : std::as_const(_parameters))
        fn(parameter, data);
}

QString ListElement::currentText() const
{
    TAV_TRACE(11, "ListElement::currentText");
    const Parameter* parameter = findParameter(current());
    if (!parameter) {
        TAV_LOG(6, "can't find current parameter description for listElement: \n%s",
                qPrintable(toString()));
        parameter = findParameter(factory());
    }
    return parameter ? parameter->title() : tr("Unknown parameter");
}

QString ListElement::displayValue() const
{
    if (const Parameter* parameter = findParameter(current()))
        return parameter->title();
    qWarning("ListElement '%s' has no parameter '%s'", qPrintable(id()), qPrintable(current()));
    return current();
}

void ListElement::filterParameter(Parameter* parameter, void* data)
{
    const auto* allowed = static_cast<const QStringList*>(data);
    if (!allowed) {
        parameter->setVisible(true);
        return;
    }
    if (!parameter->isVisible())
        return;
    bool found = false;
    for (const QString& value : *allowed) {
        if (value.contains(parameter->id())) {
            found = true;
            break;
        }
    }
    parameter->setVisible(found);
}

bool ListElement::prepareConstraints()
{
    for (Parameter* parameter : std::as_const(_parameters))
        parameter->setVisible(true);
    return true;
}

bool ListElement::translateElement(const Translator& translator)
{
    FactoryElement::translateElement(translator);
    for (Parameter* parameter : std::as_const(_parameters))
        translator.translate(parameter->id(), *parameter);
    return true;
}

QObject* ListElement::changeSender(const char** signal) const
{
    QWidget* widget = control();
    if (!widget)
        return nullptr;
    if (qobject_cast<QCheckBox*>(widget)) {
        *signal = SIGNAL(clicked());
        return widget;
    }
    if (qobject_cast<QComboBox*>(widget)) {
        *signal = SIGNAL(activated(int));
        return widget;
    }
    // The radio kind's control is a box holding an exclusive button group.
    if (auto* group = widget->findChild<QButtonGroup*>()) {
        *signal = SIGNAL(idClicked(int));
        return group;
    }
    return nullptr;
}

void ListElement::choose(const QString& value)
{
    const bool changed = value != current();
    setCurrent(value);
    emit valueChanged(current());
    if (changed)
        checkDependencies();
}

void ListElement::onClick()
{
    TAV_TRACE(11, "ListElement::onClick: control=%p", static_cast<void*>(control()));
    QWidget* widget = control();
    if (!widget)
        return;
    if (auto* box = qobject_cast<QCheckBox*>(widget)) {
        // Positions count hidden parameters here, unlike the lookups.
        const int position = box->isChecked() ? 1 : 0;
        if (position < _parameters.size())
            choose(_parameters.at(position)->id());
        return;
    }
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        const int item = qMax(combo->currentIndex(), 0);
        TAV_TRACE(11, "[DEBUG]: ListElement::OnClick(): item=%d", item);
        const Parameter* parameter = parameterAt(item);
        const QString value = parameter ? parameter->id() : factory();
        TAV_TRACE(11, "[DEBUG]: ListElement::OnClick(): newValue=%s; parameter is found=%s",
                  qPrintable(value), parameter ? "yes" : "no");
        choose(value);
        return;
    }
    if (auto* group = widget->findChild<QButtonGroup*>()) {
        if (const QAbstractButton* button = group->checkedButton())
            choose(button->objectName());
    }
}

void ListElement::setControlValue(const QString& value)
{
    const char* signal = nullptr;
    if (QObject* sender = changeSender(&signal)) {
        TAV_TRACE(11, "ListElement::setControlValue: control=%p", static_cast<void*>(control()));
        QObject::disconnect(sender, signal, this, SLOT(onClick()));
        selectInControl(value);
        QObject::connect(sender, signal, this, SLOT(onClick()));
    }
    checkDependencies();
}

void ListElement::selectInControl(const QString& value)
{
    if (auto* box = qobject_cast<QCheckBox*>(control())) {
        box->setChecked(findParameterIndex(value) == 1);
    } else if (auto* combo = qobject_cast<QComboBox*>(control())) {
        // A value that is not offered leaves the shown item as it is.
        const int index = findParameterIndex(value);
        if (index >= 0)
            combo->setCurrentIndex(index);
    } else if (auto* group = control() ? control()->findChild<QButtonGroup*>() : nullptr) {
        if (QAbstractButton* button = group->button(buttonId(value)))
            button->setChecked(true);
    }
}

int ListElement::buttonId(const QString& parameterId)
{
    return qChecksum(parameterId.toUtf8());
}

QWidget* ListElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "ListElement::createControl:\n%s", qPrintable(toString()));
    const bool checkBox = type() == etCheckbox;
    const Qt::Alignment vertical = type() == etRadio ? Qt::AlignTop : Qt::AlignVCenter;
    // The check box carries the title itself; its caption stays empty.
    QWidget* box =
        ControlBox::create(parent, checkBox ? QString() : title(), Qt::AlignRight | vertical);
    QWidget* input = createInput(box);
    ControlBox::addInput(box, input, title());
    checkConstraints(nullptr, true);
    return box;
}

QWidget* ListElement::createInput(QWidget* parent)
{
    QWidget* input = nullptr;
    if (type() == etCheckbox)
        input = createCheckBox(parent);
    else if (type() == etRadio)
        input = createRadioGroup(parent);
    else
        input = createComboBox(parent);
    setControl(input);
    return input;
}

QWidget* ListElement::createCheckBox(QWidget* parent)
{
    auto* box = new QCheckBox(parent);
    box->setText(MnemonicRegistry::mark(parent, box, title()));
    box->setChecked(findParameterIndex(current()) == 1);
    connect(box, SIGNAL(clicked()), this, SLOT(onClick()));
    return box;
}

QWidget* ListElement::createRadioGroup(QWidget* parent)
{
    auto* box = new QGroupBox(parent);
    auto* layout = new QVBoxLayout(box);
    layout->setSpacing(kRadioSpacing);
    auto* group = new QButtonGroup(box);
    group->setExclusive(true);
    fillRadioGroup(group, box);
    connect(group, SIGNAL(idClicked(int)), this, SLOT(onClick()));
    return box;
}

void ListElement::fillRadioGroup(QButtonGroup* group, QWidget* box)
{
    for (const Parameter* parameter : std::as_const(_parameters)) {
        if (!parameter->isVisible())
            continue;
        auto* button = new QRadioButton(MnemonicRegistry::escaped(parameter->title()), box);
        button->setObjectName(parameter->id());
        box->layout()->addWidget(button);
        // Two ids with the same checksum collide; the later button then goes unnumbered.
        group->addButton(button, buttonId(parameter->id()));
    }
    QAbstractButton* checked = group->button(buttonId(current()));
    if (!checked)
        checked = group->button(buttonId(factory()));
    if (checked)
        checked->setChecked(true);
}

QWidget* ListElement::createComboBox(QWidget* parent)
{
    auto* combo = new QComboBox(parent);
    fillComboBox(combo);
    connect(combo, SIGNAL(activated(int)), this, SLOT(onClick()));
    return combo;
}

void ListElement::fillComboBox(QComboBox* combo)
{
    for (const Parameter* parameter : std::as_const(_parameters)) {
        if (parameter->isVisible())
            combo->addItem(parameter->title());
    }
    // A value that is not offered shows the first item, as a fresh list does.
    combo->setCurrentIndex(qMax(findParameterIndex(current()), 0));
}

void ListElement::refreshControl()
{
    const char* signal = nullptr;
    QObject* sender = changeSender(&signal);
    if (!sender)
        return;
    TAV_TRACE(11, "ListElement::refreshControl: control=%p", static_cast<void*>(control()));
    QObject::disconnect(sender, signal, this, SLOT(onClick()));
    if (auto* combo = qobject_cast<QComboBox*>(control())) {
        combo->clear();
        fillComboBox(combo);
    } else if (auto* group = qobject_cast<QButtonGroup*>(sender)) {
        const QList<QAbstractButton*> buttons = group->buttons();
        for (QAbstractButton* button : buttons) {
            group->removeButton(button);
            delete button;
        }
        fillRadioGroup(group, control());
    } else {
        selectInControl(current());
    }
    QObject::connect(sender, signal, this, SLOT(onClick()));
}

void ListElement::deleteControl()
{
    const char* signal = nullptr;
    auto* group = qobject_cast<QButtonGroup*>(changeSender(&signal));
    if (!group) {
        FactoryElement::deleteControl();
        return;
    }
    TAV_TRACE(11, "ListElement::deleteControl:\n%s", qPrintable(toString()));
    QWidget* groupBox = control();
    QWidget* box = ControlBox::boxOf(groupBox);
    if (box)
        delete box->findChild<QLabel*>(QStringLiteral("label"), Qt::FindDirectChildrenOnly);
    const QList<QAbstractButton*> buttons = group->buttons();
    for (QAbstractButton* button : buttons) {
        group->removeButton(button);
        delete button;
    }
    delete groupBox;
    delete box;
    setControl(nullptr);
}
