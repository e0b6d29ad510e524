#pragma once

#include <QCoreApplication>
#include <QString>

class Element;
class QTreeWidgetItem;
class QWidget;

// Help in place for one setting: its description and what it accepts, as the tooltip and
// What's This text of its control and its tree row. Device texts stay plain text: a tooltip
// that looks like markup would otherwise be rendered as rich text.
class ElementHelp
{
    Q_DECLARE_TR_FUNCTIONS(ElementHelp)

public:
    // The range and step of a number, or the characters of a text field that restricts them;
    // empty for other settings.
    static QString accepts(const Element* element);
    // The description (when it says more than the title) above what the setting accepts.
    static QString plainText(const Element* element);
    // plainText() escaped into rich text, for tooltips and What's This.
    static QString richText(const Element* element);

    // On a control just made: its box and its input; an empty text field also shows what it
    // accepts as its placeholder.
    static void applyToControl(Element* element, QWidget* box);
    static void applyToRow(QTreeWidgetItem* row, const Element* element);

private:
    static QString numberRange(const Element* element);
};
