#pragma once

#include "xml/DomParser.h"

class Element;

// Builds the change document sent to the device: the header line, then "root" and the
// settings root ("PrinterSettingsInfo" or "IDSInfo") holding one empty element per reported
// setting, all at one level.
class ChangeGenerator : public DomParser
{
public:
    ChangeGenerator();

    // Empties the document; every request starts here.
    void reset();

    void setPressedButton(Element* button) { _pressedButton = button; }
    Element* pressedButton() const { return _pressedButton; }

    // Existing children are taken, missing ones appended; the last node of the path.
    QDomNode createPath(const QStringList& parts);

    // The element's id as tag; CURRENT holds the value of a value setting, "PRESSED" for a
    // reportable button, nothing otherwise.
    QDomElement createDescription(const Element* element);

    // The header line followed by the document's text.
    QString getChanges() const;

    QString header() const { return _header; }

private:
    QString _header;
    Element* _pressedButton = nullptr;
};
