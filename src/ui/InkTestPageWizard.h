#pragma once

#include "ui/InkWizard.h"

// Prints the ink test page: confirms that paper is loaded, sends, and says how it went.
class InkTestPageWizard : public InkWizard
{
    Q_OBJECT

public:
    InkTestPageWizard(Configurator* configurator, const QString& buttonId,
                      QWidget* parent = nullptr);
};
