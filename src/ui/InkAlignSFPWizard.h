#pragma once

#include "ui/InkWizard.h"

// Aligns the cartridges of a single-function printer: prints the alignment page, lets the
// user choose the best pattern of each row, and sends the choice. A button kind that reports
// its press leaves the whole procedure to the printer.
class InkAlignSFPWizard : public InkWizard
{
    Q_OBJECT

public:
    InkAlignSFPWizard(Configurator* configurator, const QString& buttonId, bool photoInk,
                      QWidget* parent = nullptr);

private:
    void addChoiceSteps(bool photoInk);
    void addPressSteps();
};
