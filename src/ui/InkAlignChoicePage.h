#pragma once

#include "ui/InkStepPage.h"

#include <QList>

class QComboBox;
class QFormLayout;

// Lets the user pick, for each row of the printed alignment page, the pattern whose bars
// line up best. A photo cartridge adds two rows.
class InkAlignChoicePage : public InkStepPage
{
    Q_OBJECT

public:
    explicit InkAlignChoicePage(bool photoInk, QWidget* parent = nullptr);

    // One pattern letter per row, in row order.
    QByteArray patterns() const;

private:
    void addRow(int row, const QString& name);

    QFormLayout* form;
    QList<QComboBox*> rows;
};
