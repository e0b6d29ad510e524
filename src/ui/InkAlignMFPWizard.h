#pragma once

#include "ui/InkWizard.h"

// Aligns the cartridges of a multi-function device with its scanner: prints the alignment
// page, has the user lay it on the glass, lets the device scan it and reports the verdict.
// A button kind that reports its press leaves the scan to the device's control panel.
class InkAlignMFPWizard : public InkWizard
{
    Q_OBJECT

public:
    InkAlignMFPWizard(Configurator* configurator, const QString& buttonId,
                      QWidget* parent = nullptr);

private:
    void addScanSteps();
    void addPressSteps();
};
