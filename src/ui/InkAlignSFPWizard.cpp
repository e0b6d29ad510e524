#include "ui/InkAlignSFPWizard.h"

#include "io/InkCommands.h"
#include "ui/InkAlignChoicePage.h"

InkAlignSFPWizard::InkAlignSFPWizard(Configurator* configurator, const QString& buttonId,
                                     bool photoInk, QWidget* parent)
    : InkWizard(configurator, buttonId, tr("Align Cartridges"), parent)
{
    if (pressReported())
        addPressSteps();
    else
        addChoiceSteps(photoInk);
}

void InkAlignSFPWizard::addChoiceSteps(bool photoInk)
{
    addPaperPage(tr("Print the alignment page"),
                 tr("Aligning the cartridges makes lines and colours meet exactly. The printer "
                    "first prints a page of patterns to choose from."),
                 tr("&Print"),
                 [this, photoInk] { return send(InkCommands::alignmentPage(photoInk)); });
    auto* choice = new InkAlignChoicePage(photoInk, this);
    choice->setAction(tr("&Align"), [this, choice, photoInk] {
        return send(InkCommands::alignmentChoice(choice->patterns(), photoInk));
    });
    addPage(choice);
    addFinalPage(tr("Alignment sent"),
                 tr("The printer has received your choice and aligns its cartridges.\n\n"
                    "Print a test page to check the result."));
}

void InkAlignSFPWizard::addPressSteps()
{
    addPaperPage(tr("Align the cartridges"),
                 tr("Aligning the cartridges makes lines and colours meet exactly. The printer "
                    "prints an alignment page and carries out the alignment itself."),
                 tr("&Align"), [this] { return press(); });
    addFinalPage(tr("Alignment started"),
                 tr("The printer has accepted the request and prints the alignment page. Follow "
                    "any instructions on its control panel."));
}
