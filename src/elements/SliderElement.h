#pragma once

#include "elements/NumericElement.h"

#include <QColor>
#include <QList>

// An integer setting shown on a slider, whose scale may be coloured by markers
// ("COLORMARKER": "position:colour" items joined by ";", e.g. "0:#2e7d32;70:#f9a825").
//
// The control: the caption, "minusLabel" (MIN), the slider with "colorMarkLabel" under it,
// "plusLabel" (MAX) and "valueLabel" (the value). The slider moves in STEPs from MIN, so every
// position is a value the device accepts. Each marker colours the scale from its position up
// to the next marker's (the last one up to MAX); the part below the first marker is left
// uncoloured.
class SliderElement : public NumericElement
{
    Q_OBJECT

public:
    struct ColorMarker
    {
        double position;
        QColor color;
    };

    SliderElement(const QDomElement& node, int type, const QDomNode* parentNode,
                  Element* parentElement);

    QString colorMarkerText() const { return _colorMarkerText; }
    const QList<ColorMarker>& colorMarkers() const { return _colorMarkers; }

    // Items whose position is not a number within the limits, or whose colour Qt does not
    // know, are left out with a logged warning.
    QList<ColorMarker> parseColorMarkers(const QString& text) const;

    QWidget* createControl(QWidget* parent) override;
    void deleteControl() override;
    void setControlValue(const QString& value) override;

    // Slider positions count steps from MIN; values between steps go to the nearest one. A
    // range of more positions than a slider has moves in a multiple of STEP instead. A
    // missing limit counts as 0, its ends as far as an int reaches.
    int positionCount() const;
    int positionOf(qint64 value) const;
    qint64 valueAt(int position) const;
    // The colour the markers give to a value; invalid where no marker reaches.
    QColor colorAt(double value) const;

public slots:
    void onClick();

protected:
    void applyLimits() override;

private:
    qint64 lowest() const;
    qint64 highest() const;
    // STEP, or the multiple of it that keeps the positions within the slider's int.
    qint64 stride() const;
    // Paints the marker colours across the range, one column per slider position (at most
    // kMarkColumns, sampled evenly).
    QPixmap colorMarkPixmap() const;
    void updateLabels();

    QString _colorMarkerText;
    QList<ColorMarker> _colorMarkers;
};
