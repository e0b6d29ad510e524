#pragma once

#include <QMessageBox>

class QWidget;

// Asked when a window with changes not yet sent is closed: Apply, Discard or Cancel.
class PendingQuestion
{
public:
    // QMessageBox::Apply, QMessageBox::Discard, or QMessageBox::Cancel for anything else.
    static QMessageBox::StandardButton ask(QWidget* parent, int pending);
};
