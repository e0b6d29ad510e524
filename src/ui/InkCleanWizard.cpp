#include "ui/InkCleanWizard.h"

#include "io/InkCommands.h"
#include "ui/InkStepPage.h"

#include <QCheckBox>
#include <QVBoxLayout>

InkCleanWizard::InkCleanWizard(Configurator* configurator, const QString& buttonId, QWidget* parent)
    : InkWizard(configurator, buttonId, tr("Clean Cartridges"), parent)
{
    auto* start = new InkStepPage(
        tr("Clean the cartridges"),
        tr("Cleaning flushes the print nozzles of the cartridges. It helps when printouts show "
           "streaks, gaps or missing colours.\n\nCleaning uses ink, so clean only when the "
           "print quality needs it. The printer is busy for a minute or two."),
        QString(), this);
    start->setAction(tr("&Clean"),
                     [this] { return pressReported() ? press() : send(InkCommands::clean()); });
    addPage(start);

    InkStepPage* done =
        addFinalPage(tr("Cleaning started"),
                     tr("The printer has received the request and cleans its cartridges now.\n\n"
                        "A test page shows whether the cleaning helped."));
    testPageBox = new QCheckBox(tr("Print a &test page after closing this wizard"), done);
    testPageBox->setObjectName(QStringLiteral("testPageBox"));
    testPageBox->setChecked(true);
    done->body()->addWidget(testPageBox);
}

bool InkCleanWizard::testPageWanted() const
{
    return result() == QDialog::Accepted && testPageBox->isChecked();
}
