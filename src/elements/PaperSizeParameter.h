#pragma once

#include "elements/Parameter.h"

// A paper size: besides its name, the page's line counts and largest margins.
class PaperSizeParameter : public Parameter
{
    Q_OBJECT
    Q_PROPERTY(QString maxtopmargin READ maxtopmargin)
    Q_PROPERTY(QString maxleftmargin READ maxleftmargin)
    Q_PROPERTY(QString linesportrait READ linesportrait)
    Q_PROPERTY(QString lineslandscape READ lineslandscape)

public:
    explicit PaperSizeParameter(const QDomElement& node);

    QString maxtopmargin() const { return _maxtopmargin; }
    QString maxleftmargin() const { return _maxleftmargin; }
    QString linesportrait() const { return _linesportrait; }
    QString lineslandscape() const { return _lineslandscape; }

private:
    QString _maxtopmargin;
    QString _maxleftmargin;
    QString _linesportrait;
    QString _lineslandscape;
};
