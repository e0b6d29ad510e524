#pragma once

#include "ui_SettingsDialogBase.h"

#include <QDialog>

// The generated form of the settings dialog: the two lists, the fold button, the panel area
// and the dialog buttons, as members named after their widgets.
class SettingsDialogBase : public QDialog, public Ui::SettingsDialogBase
{
    Q_OBJECT

public:
    explicit SettingsDialogBase(QWidget* parent = nullptr, Qt::WindowFlags flags = {})
        : QDialog(parent, flags)
    {
        setupUi(this);
    }
};
