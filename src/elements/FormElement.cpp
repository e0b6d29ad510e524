#include "elements/FormElement.h"

#include "elements/ControlBox.h"
#include "elements/FactoryElement.h"
#include "elements/MnemonicRegistry.h"
#include "elements/TraceLog.h"
#include "ui/ElementHelp.h"
#include "ui/InvalidEntryWarning.h"
#include "ui/PendingQuestion.h"
#include "ui/PopupForm.h"

#include <QDomElement>
#include <QLayout>
#include <QPushButton>

FormElement::FormElement(const QDomElement& node, int type, const QDomNode* parentNode,
                         Element* parentElement, IElementFactory* factory)
    : ComplexElement(node, type, parentNode, parentElement, factory)
    , _default(node.attribute(QStringLiteral("DEFAULT")) == QLatin1String("TRUE"))
{
}

FormElement::~FormElement()
{
    delete m_pForm;
}

void FormElement::connectSignals(QObject* receiver)
{
    ComplexElement::connectSignals(receiver);
    reconnect(this, SIGNAL(applyClicked()), receiver, SLOT(popupApplyClicked()));
}

bool FormElement::validateChanges(Element* element, void* data)
{
    if (element->isConcrete() && !element->isValid()) {
        if (data)
            *static_cast<bool*>(data) = false;
        return false;
    }
    return true;
}

bool FormElement::factoryReset(Element* element, void*)
{
    auto* factoryElement = qobject_cast<FactoryElement*>(element);
    // A setting the device sent without FACTORY has no printer default to go back to.
    if (!factoryElement || !factoryElement->hasFactory() || factoryElement->factory().isNull())
        return true;
    factoryElement->valueChange(factoryElement->factory());
    factoryElement->setControlValue(factoryElement->factory());
    return true;
}

bool FormElement::findInvalid(Element* element, void* data)
{
    if (element->isConcrete() && !element->isValid()) {
        *static_cast<Element**>(data) = element;
        return false;
    }
    return true;
}

QWidget* FormElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "FormElement::createControl:\n%s", qPrintable(toString()));
    QWidget* box = ControlBox::create(parent, QString(), Qt::AlignRight | Qt::AlignVCenter);
    auto* button = new QPushButton(box);
    const QString text = title() + QStringLiteral("...");
    button->setText(MnemonicRegistry::mark(box, button, text));
    button->setAutoDefault(false);
    connect(button, SIGNAL(clicked()), this, SLOT(showForm()));
    ControlBox::addInput(box, button, title());
    setControl(button);
    return box;
}

void FormElement::buildForm()
{
    m_pForm = new PopupForm;
    m_pForm->setModal(true);
    m_pForm->setWindowTitle(title());
    m_pForm->setAccessibleName(title());
    if (!_default)
        m_pForm->btnDefault->hide();
    connect(m_pForm->btnCancel, SIGNAL(clicked()), this, SLOT(cancelBtnClicked()));
    connect(m_pForm->btnOK, SIGNAL(clicked()), this, SLOT(okBtnClicked()));
    connect(m_pForm->btnDefault, SIGNAL(clicked()), this, SLOT(defaultBtnClicked()));
    for (Element* element : elements()) {
        const bool concrete = element->inherits("ConcreteElement");
        TAV_ASSERT_TEXT(concrete, "elements().at(i)->inherits(\"ConcreteElement\")");
        QWidget* control = element->createControl(m_pForm->controlPanel());
        ElementHelp::applyToControl(element, control);
        m_pForm->addControl(control);
        if (concrete)
            reconnect(element, SIGNAL(valueChanged(const QString&)), this,
                      SLOT(enableApplyButton()));
    }
    TAV_ASSERT_TEXT(m_pForm->layout(), "m_pForm->layout()");
    if (m_pForm->layout())
        m_pForm->layout()->setSizeConstraint(QLayout::SetFixedSize);
    m_pForm->btnOK->setEnabled(false);
    m_pForm->setCloseCheck([this] { return mayClose(); });
    // The panel's order is the creation order; the buttons come after the settings.
    QWidget::setTabOrder(m_pForm->controlPanel(), m_pForm->btnDefault);
    QWidget::setTabOrder(m_pForm->btnDefault, m_pForm->btnOK);
    QWidget::setTabOrder(m_pForm->btnOK, m_pForm->btnCancel);
}

void FormElement::dismantleForm()
{
    for (Element* element : elements()) {
        disconnect(element, SIGNAL(valueChanged(const QString&)), this, SLOT(enableApplyButton()));
        element->deleteControl();
    }
    delete m_pForm;
    m_pForm = nullptr;
    _applyRefused = false;
}

void FormElement::showForm()
{
    TAV_LOG(10, "FormElement::showForm()");
    if (m_pForm) {
        // Already running modally: a second modal run of the same form cannot start, so
        // bring the open one forward instead.
        m_pForm->raise();
        m_pForm->activateWindow();
        return;
    }
    buildForm();
    if (m_pForm->exec() == QDialog::Accepted) {
        TAV_LOG(10, "dialog result is QDialog::Accepted");
    } else {
        TAV_LOG(10, "dialog result is QDialog::Rejected");
        iterateElements(rejectChanges, nullptr);
    }
    dismantleForm();
}

void FormElement::okBtnClicked()
{
    if (!m_pForm)
        return;
    Element* invalid = nullptr;
    iterateElements(findInvalid, &invalid);
    if (invalid) {
        // The form stays open at the value to correct.
        InvalidEntryWarning::show(m_pForm, invalid);
        if (QWidget* control = invalid->control())
            control->setFocus(Qt::OtherFocusReason);
        return;
    }
    emit applyClicked();
    if (_applyRefused) {
        TAV_LOG(10, "FormElement::okBtnClicked(): changes not applied, form stays open");
        _applyRefused = false;
        return;
    }
    TAV_LOG(10, "FormElement::okBtnClicked(): startEnumerating!");
    iterateElements(acceptChanges, nullptr);
    m_pForm->accept();
}

namespace {

bool countPending(Element* element, void* data)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (concrete && concrete->isChanged())
        ++*static_cast<int*>(data);
    return true;
}

} // namespace

bool FormElement::mayClose()
{
    int pending = 0;
    iterateElements(countPending, &pending);
    if (pending == 0)
        return true;
    switch (PendingQuestion::ask(m_pForm, pending)) {
    case QMessageBox::Discard:
        return true; // the closed form puts the device's values back
    case QMessageBox::Apply:
        okBtnClicked(); // closes the form itself once the printer took the values
        return false;
    default:
        return false;
    }
}

void FormElement::setApplyRefused()
{
    _applyRefused = true;
}

void FormElement::cancelBtnClicked()
{
    if (m_pForm)
        m_pForm->reject();
}

void FormElement::helpBtnClicked()
{
    TAV_LOG(10, "FormElement::helpBtnClicked()");
}

void FormElement::defaultBtnClicked()
{
    TAV_LOG(10, "FormElement::defaultBtnClicked");
    TAV_LOG(10, "elements().count()=%d", int(elements().size()));
    iterateElements(factoryReset, nullptr);
}

void FormElement::enableApplyButton()
{
    if (m_pForm)
        m_pForm->btnOK->setEnabled(true);
}
