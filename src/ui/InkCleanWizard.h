#pragma once

#include "ui/InkWizard.h"

class QCheckBox;

// Cleans the cartridges: explains what cleaning does and what it costs, sends, and offers
// a test page to check the result.
class InkCleanWizard : public InkWizard
{
    Q_OBJECT

public:
    InkCleanWizard(Configurator* configurator, const QString& buttonId, QWidget* parent = nullptr);

    // The user finished the wizard asking for a test page.
    bool testPageWanted() const;

private:
    QCheckBox* testPageBox;
};
