#include "ui/InkTestPageWizard.h"

#include "io/InkCommands.h"

InkTestPageWizard::InkTestPageWizard(Configurator* configurator, const QString& buttonId,
                                     QWidget* parent)
    : InkWizard(configurator, buttonId, tr("Print Test Page"), parent)
{
    addPaperPage(tr("Load paper"), tr("The test page shows how well every cartridge prints."),
                 tr("&Print"),
                 [this] { return pressReported() ? press() : send(InkCommands::testPage()); });
    addFinalPage(tr("Test page sent"),
                 tr("The printer has received the request and prints the test page.\n\n"
                    "Check that every colour block is even, without streaks or gaps. If it "
                    "is not, clean the cartridges."));
}
