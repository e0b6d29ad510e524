#pragma once

#include "elements/Element.h"

class AboutInfo;

// The about block ("ABOUT"); always known by the id "AboutElement". Shows the about record
// the program supplies.
class AboutElement : public Element
{
    Q_OBJECT

public:
    AboutElement(const QDomElement& node, int type, const QDomNode* parentNode,
                 Element* parentElement);
    ~AboutElement() override;

    // Replaces the held record by a copy of info.
    void setAboutInfo(const AboutInfo& info);
    const AboutInfo* aboutInfo() const { return _aboutInfo; }
    // The text of the node's "About" child, as the device sent it.
    QString aboutText() const { return _aboutText; }

    // The logo beside the model, the program's name, its version ("%u.%.2u.%.2u") and the
    // copyright; the device's own about text below them when it sent one.
    QWidget* createControl(QWidget* parent) override;

private:
    AboutInfo* _aboutInfo = nullptr;
    QString _aboutText;
};
