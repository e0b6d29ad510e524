#include "ui/InkAlignMFPWizard.h"

#include "io/InkCommands.h"
#include "ui/InkStepPage.h"

namespace {

const char kIntro[] =
    QT_TRANSLATE_NOOP("InkAlignMFPWizard", "Aligning the cartridges makes lines and colours meet "
                                           "exactly. The printer prints an alignment page and then "
                                           "reads it back with its scanner.");

} // namespace

InkAlignMFPWizard::InkAlignMFPWizard(Configurator* configurator, const QString& buttonId,
                                     QWidget* parent)
    : InkWizard(configurator, buttonId, tr("Align Cartridges"), parent)
{
    if (pressReported())
        addPressSteps();
    else
        addScanSteps();
}

void InkAlignMFPWizard::addScanSteps()
{
    addPaperPage(tr("Print the alignment page"), tr(kIntro), tr("&Print"),
                 [this] { return send(InkCommands::scanPage()); });
    auto* glass = new InkStepPage(
        tr("Place the page on the scanner glass"),
        tr("When the alignment page has printed, lift the scanner lid and lay the page face "
           "down on the glass, its top edge in the marked corner. Close the lid, then press "
           "Scan."),
        QStringLiteral(":/images/scanner_glass.png"), this);
    glass->setAction(tr("&Scan"), [this] {
        return sendAndWait(InkCommands::scanAlign(),
                           tr("The printer is scanning the alignment page..."));
    });
    addPage(glass);
    addFinalPage(tr("Cartridges aligned"),
                 tr("The printer has scanned the alignment page and aligned its cartridges."));
}

void InkAlignMFPWizard::addPressSteps()
{
    addPaperPage(tr("Align the cartridges"), tr(kIntro), tr("&Align"), [this] { return press(); });
    addFinalPage(tr("Alignment started"),
                 tr("The printer has accepted the request and prints the alignment page. Lay it "
                    "face down on the scanner glass, its top edge in the marked corner, and "
                    "follow the instructions on the printer's control panel to scan it."));
}
