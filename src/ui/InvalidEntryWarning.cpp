#include "ui/InvalidEntryWarning.h"

#include "app/Log.h"
#include "elements/ConcreteElement.h"
#include "elements/SecretSetting.h"

#include <QCoreApplication>
#include <QMessageBox>

void InvalidEntryWarning::show(QWidget* parent, const Element* element)
{
    const auto* invalid = qobject_cast<const ConcreteElement*>(element);
    if (!invalid)
        return;
    const QString shown = SecretSetting::masked(invalid, invalid->current());
    TAV_LOG(9, "current()='%s' title()='%s'", qPrintable(shown), qPrintable(invalid->title()));
    // The dialog's own words, so both places read and translate alike.
    QMessageBox box(QMessageBox::Warning, QCoreApplication::translate("SettingsDialog", "Error"),
                    QCoreApplication::translate(
                        "SettingsDialog",
                        "The '%1' is not a valid entry for '%2'.\nPlease specify another value")
                        .arg(shown, invalid->title()),
                    QMessageBox::Ok, parent);
    // Value and title come from the device or the user: never markup.
    box.setTextFormat(Qt::PlainText);
    box.exec();
}
