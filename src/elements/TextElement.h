#pragma once

#include "elements/ConcreteElement.h"

// A static text ("STATICTEXT"); TEXTLABEL is what it shows.
class TextElement : public ConcreteElement
{
    Q_OBJECT
    Q_PROPERTY(QString format READ format WRITE setFormat)

public:
    TextElement(const QDomElement& node, int type, const QDomNode* parentNode,
                Element* parentElement);

    QString textLabel() const { return _textLabel; }

    // A read-only, word-wrapped label with TEXTLABEL, or the title when there is none.
    QWidget* createControl(QWidget* parent) override;
    QString shownText() const;

private:
    QString _textLabel;
};
