#pragma once

#include <QDialog>
#include <QStringList>

// Asks, at Apply, whether settings emptied when the printer's values were read may be
// cleared on the printer too. Cancel sends nothing and keeps every change pending.
class ClearingQuestion : public QDialog
{
    Q_OBJECT

public:
    ClearingQuestion(const QStringList& settings, QWidget* parent = nullptr);

    // True when the user chose to clear them.
    static bool confirm(const QStringList& settings, QWidget* parent);
};
