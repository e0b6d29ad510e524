#include "elements/ControlBox.h"

#include "elements/MnemonicRegistry.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QWidget>

namespace {

const QString kBoxName = QStringLiteral("hbox");
const QString kLabelName = QStringLiteral("label");

} // namespace

QWidget* ControlBox::create(QWidget* parent, const QString& caption, Qt::Alignment alignment)
{
    auto* box = new QWidget(parent);
    box->setObjectName(kBoxName);
    auto* layout = new QHBoxLayout(box);
    layout->setSpacing(kSpacing);
    layout->setContentsMargins(0, 0, 0, 0);
    // Plain text until addInput() knows whether a mnemonic may be set.
    auto* label = new QLabel(caption, box);
    label->setObjectName(kLabelName);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(alignment);
    layout->addWidget(label, 1);
    return box;
}

void ControlBox::addInput(QWidget* box, QWidget* input, const QString& accessibleName)
{
    auto* layout = static_cast<QHBoxLayout*>(box->layout());
    layout->addWidget(input, 1);
    input->setAccessibleName(accessibleName);
    QLabel* caption = label(box);
    if (!caption || caption->text().isEmpty())
        return;
    caption->setText(MnemonicRegistry::mark(box, caption, caption->text()));
    caption->setBuddy(input);
}

QLabel* ControlBox::label(const QWidget* box)
{
    return box ? box->findChild<QLabel*>(kLabelName, Qt::FindDirectChildrenOnly) : nullptr;
}

QWidget* ControlBox::boxOf(const QWidget* control)
{
    QWidget* parent = control ? control->parentWidget() : nullptr;
    return parent && parent->objectName() == kBoxName ? parent : nullptr;
}
