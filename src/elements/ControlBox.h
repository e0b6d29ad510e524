#pragma once

#include <QString>
#include <Qt>

class QLabel;
class QWidget;

// The common layout of a setting's control: a box named "hbox" (spacing 15) holding a caption
// label named "label" and the input widget, both with stretch factor 1.
class ControlBox
{
public:
    static constexpr int kSpacing = 15;

    // The box in parent with its caption; the input comes with addInput().
    static QWidget* create(QWidget* parent, const QString& caption, Qt::Alignment alignment);

    // Puts the input beside the caption. A caption with text gets a mnemonic that is free in
    // the window and the input as its buddy; the input is named for assistive tools.
    static void addInput(QWidget* box, QWidget* input, const QString& accessibleName);

    static QLabel* label(const QWidget* box);

    // The box a control sits in, or null when it stands alone (a table cell, for one).
    static QWidget* boxOf(const QWidget* control);
};
