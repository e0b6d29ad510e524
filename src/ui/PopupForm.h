#pragma once

#include "ui_PopupForm.h"

#include <QDialog>

#include <functional>

// The modal form of a popup group: a panel that the group's settings put their controls in,
// and the buttons Apply ("btnOK"), Close ("btnCancel") and Printer Default ("btnDefault").
// The group element drives it; the form itself only lays things out.
class PopupForm : public QDialog, public Ui_PopupForm
{
    Q_OBJECT

public:
    explicit PopupForm(QWidget* parent = nullptr);

    // Where the settings' controls go.
    QWidget* controlPanel() const { return panel; }
    // Appends a control to the panel, below those already there.
    void addControl(QWidget* control);
    // Asked before Close or Escape closes the form; false keeps it open.
    void setCloseCheck(std::function<bool()> check) { _closeCheck = std::move(check); }
    void reject() override;

private:
    std::function<bool()> _closeCheck;
};
