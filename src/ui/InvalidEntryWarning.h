#pragma once

class Element;
class QWidget;

// The warning that stops Apply at a value the setting does not accept, alike for the main
// dialog and a popup form.
class InvalidEntryWarning
{
public:
    static void show(QWidget* parent, const Element* element);
};
