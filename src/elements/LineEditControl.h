#pragma once

#include <QString>

class FactoryElement;
class QLineEdit;
class QWidget;

// The control of the typed kinds (edit box, dial number, IP address, subnet mask): the caption
// and a line editor that admits only text fitting the element's validation pattern, every
// change of its text reaching the element's valueChange().
class LineEditControl
{
public:
    // maxLength <= 0 leaves the editor's own limit.
    static QWidget* create(FactoryElement* element, QWidget* parent, int maxLength);
    // Puts value into the editor without its change signal reaching the element.
    static void setValue(FactoryElement* element, const QString& value);
    static QLineEdit* editorOf(const FactoryElement* element);
};
