#include "elements/LineEditControl.h"

#include "elements/ControlBox.h"
#include "elements/FactoryElement.h"
#include "elements/SecretField.h"
#include "elements/SecretSetting.h"
#include "elements/TraceLog.h"

#include <QHash>
#include <QLineEdit>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

namespace {

// Few patterns exist (one per kind and character-set declaration): judge each once.
bool isValidPattern(const QString& pattern)
{
    static QHash<QString, bool> known;
    auto it = known.constFind(pattern);
    if (it == known.constEnd())
        it = known.insert(pattern, QRegularExpression(pattern).isValid());
    return *it;
}

} // namespace

QWidget* LineEditControl::create(FactoryElement* element, QWidget* parent, int maxLength)
{
    QWidget* box = ControlBox::create(parent, element->title(), Qt::AlignRight | Qt::AlignVCenter);
    auto* edit = new QLineEdit(element->current(), box);
    if (maxLength > 0)
        edit->setMaxLength(maxLength);
    const QString pattern = element->validationPattern();
    if (!pattern.isEmpty()) {
        // The validator anchors the pattern itself: whole-text matching, as isValid() does,
        // while partial input stays typeable.
        if (isValidPattern(pattern))
            edit->setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), edit));
        else
            TAV_LOG(9, "Warning: pattern <%s> of <%s> is not a valid expression",
                    qPrintable(pattern), qPrintable(element->id()));
    }
    QObject::connect(edit, SIGNAL(textChanged(const QString&)), element,
                     SLOT(valueChange(const QString&)));
    ControlBox::addInput(box, edit, element->title());
    if (SecretSetting::isSecret(element))
        SecretField::protect(edit, box);
    element->setControl(edit);
    return box;
}

QLineEdit* LineEditControl::editorOf(const FactoryElement* element)
{
    return qobject_cast<QLineEdit*>(element->control());
}

void LineEditControl::setValue(FactoryElement* element, const QString& value)
{
    QLineEdit* edit = editorOf(element);
    if (!edit)
        return;
    QObject::disconnect(edit, SIGNAL(textChanged(const QString&)), element,
                        SLOT(valueChange(const QString&)));
    edit->setText(value);
    QObject::connect(edit, SIGNAL(textChanged(const QString&)), element,
                     SLOT(valueChange(const QString&)));
}
