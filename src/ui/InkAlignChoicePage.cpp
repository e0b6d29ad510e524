#include "ui/InkAlignChoicePage.h"

#include "io/InkCommands.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

InkAlignChoicePage::InkAlignChoicePage(bool photoInk, QWidget* parent)
    : InkStepPage(tr("Choose the best patterns"),
                  tr("On each row of the alignment page, find the pattern whose two bars line "
                     "up best, without a step between them, like C in the picture. Choose its "
                     "letter for every row."),
                  QStringLiteral(":/images/align_patterns.png"), parent)
    , form(new QFormLayout)
{
    const QStringList names = {tr("Black and colour, horizontal"), tr("Black and colour, vertical"),
                               tr("Printing in both directions"),
                               tr("Photo and colour, horizontal"),
                               tr("Photo and colour, vertical")};
    body()->addLayout(form);
    for (int row = 0; row < InkCommands::alignmentRows(photoInk); ++row)
        addRow(row, names.at(row));
}

void InkAlignChoicePage::addRow(int row, const QString& name)
{
    auto* box = new QComboBox(this);
    box->setObjectName(QStringLiteral("row%1").arg(row + 1));
    for (int i = 0; i < InkCommands::kPatternCount; ++i)
        box->addItem(QString(QLatin1Char(char(InkCommands::kFirstPattern + i))));
    box->setCurrentIndex(InkCommands::kPatternCount / 2);
    auto* label = new QLabel(tr("Row &%1: %2").arg(row + 1).arg(name), this);
    label->setBuddy(box);
    form->addRow(label, box);
    rows.append(box);
}

QByteArray InkAlignChoicePage::patterns() const
{
    QByteArray letters;
    for (const QComboBox* box : rows)
        letters.append(char(InkCommands::kFirstPattern + box->currentIndex()));
    return letters;
}
