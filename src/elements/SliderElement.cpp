#include "elements/SliderElement.h"

#include "elements/ControlBox.h"
#include "elements/DeviceNumber.h"
#include "elements/TraceLog.h"

#include <QDomElement>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QSlider>
#include <QVBoxLayout>

#include <climits>
#include <cmath>

namespace {

const QString kColumnName = QStringLiteral("sliderColumn");
const QString kMinusName = QStringLiteral("minusLabel");
const QString kPlusName = QStringLiteral("plusLabel");
const QString kValueName = QStringLiteral("valueLabel");
const QString kColorMarkName = QStringLiteral("colorMarkLabel");
constexpr int kColorMarkHeight = 6;
// More columns than this are more than a screen shows.
constexpr int kMarkColumns = 1024;

QLabel* namedLabel(QWidget* box, const QString& name)
{
    return box ? box->findChild<QLabel*>(name) : nullptr;
}

} // namespace

SliderElement::SliderElement(const QDomElement& node, int type, const QDomNode* parentNode,
                             Element* parentElement)
    : NumericElement(node, type, parentNode, parentElement)
    , _colorMarkerText(node.attribute(QStringLiteral("COLORMARKER")))
{
    _colorMarkers = parseColorMarkers(_colorMarkerText);
}

QList<SliderElement::ColorMarker> SliderElement::parseColorMarkers(const QString& text) const
{
    QList<ColorMarker> markers;
    const QStringList items = text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& item : items) {
        const int colon = item.indexOf(QLatin1Char(':'));
        bool ok = false;
        const double position = colon > 0 ? item.left(colon).trimmed().toDouble(&ok) : 0.0;
        const QColor color(colon > 0 ? item.mid(colon + 1).trimmed() : QString());
        const bool belowMin = !min().isEmpty() && position < min().toDouble();
        const bool aboveMax = !max().isEmpty() && position > max().toDouble();
        if (!ok || !color.isValid() || belowMin || aboveMax) {
            TAV_LOG(9, "Warning: ignoring COLORMARKER item '%s' of <%s>", qPrintable(item),
                    qPrintable(id()));
            continue;
        }
        markers.append({position, color});
    }
    return markers;
}

qint64 SliderElement::lowest() const
{
    return DeviceNumber::saturated(lowerLimit().value_or(0));
}

qint64 SliderElement::highest() const
{
    return DeviceNumber::saturated(upperLimit().value_or(0));
}

qint64 SliderElement::stride() const
{
    // Both ends lie in the int range, so the span fits in 64 bits.
    const qint64 unit = stepOf(step());
    const qint64 steps = qMax<qint64>(0, highest() - lowest()) / unit;
    return unit * (steps / INT_MAX + 1);
}

int SliderElement::positionCount() const
{
    return int(qMax<qint64>(0, highest() - lowest()) / stride() + 1);
}

int SliderElement::positionOf(qint64 value) const
{
    const double steps = double(value - lowest()) / double(stride());
    if (!(steps > 0))
        return 0;
    return int(qMin<double>(std::floor(steps + 0.5), positionCount() - 1));
}

qint64 SliderElement::valueAt(int position) const
{
    return lowest() + qint64(position) * stride();
}

QColor SliderElement::colorAt(double value) const
{
    QColor color;
    double reached = 0.0;
    for (const ColorMarker& marker : _colorMarkers) {
        if (marker.position <= value && (!color.isValid() || marker.position >= reached)) {
            color = marker.color;
            reached = marker.position;
        }
    }
    return color;
}

QPixmap SliderElement::colorMarkPixmap() const
{
    const int positions = positionCount();
    const int columns = qMin(positions, kMarkColumns);
    QPixmap pixmap(columns, 1);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    for (int x = 0; x < columns; ++x) {
        const qint64 position = columns > 1 ? qint64(x) * (positions - 1) / (columns - 1) : 0;
        const QColor color = colorAt(double(valueAt(int(position))));
        if (color.isValid())
            painter.fillRect(x, 0, 1, 1, color);
    }
    return pixmap;
}

QWidget* SliderElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "SliderElement::createControl:\n%s", qPrintable(toString()));
    QWidget* box = ControlBox::create(parent, title(), Qt::AlignRight | Qt::AlignVCenter);
    auto* minus = new QLabel(box);
    minus->setObjectName(kMinusName);
    auto* column = new QWidget(box);
    column->setObjectName(kColumnName);
    auto* columnLayout = new QVBoxLayout(column);
    columnLayout->setContentsMargins(0, 0, 0, 0);
    columnLayout->setSpacing(2);
    auto* slider = new QSlider(Qt::Horizontal, column);
    slider->setFocusPolicy(Qt::StrongFocus);
    auto* marks = new QLabel(column);
    marks->setObjectName(kColorMarkName);
    marks->setScaledContents(true);
    marks->setFixedHeight(kColorMarkHeight);
    marks->setVisible(!_colorMarkers.isEmpty());
    columnLayout->addWidget(slider);
    columnLayout->addWidget(marks);
    auto* plus = new QLabel(box);
    plus->setObjectName(kPlusName);
    auto* shown = new QLabel(box);
    shown->setObjectName(kValueName);
    shown->setMinimumWidth(shown->fontMetrics().horizontalAdvance(QStringLiteral("-00000")));

    auto* layout = box->layout();
    layout->addWidget(minus);
    ControlBox::addInput(box, column, title());
    layout->addWidget(plus);
    layout->addWidget(shown);
    slider->setAccessibleName(title());
    if (QLabel* caption = ControlBox::label(box))
        caption->setBuddy(slider);

    setControl(slider);
    applyLimits();
    // The value label follows the slider also when the value is set from outside.
    connect(slider, &QSlider::valueChanged, shown,
            [this, shown](int position) { shown->setText(QString::number(valueAt(position))); });
    connect(slider, SIGNAL(valueChanged(int)), this, SLOT(onClick()));
    wireLimits();
    checkConstraints(nullptr, true);
    return box;
}

void SliderElement::deleteControl()
{
    // The slider sits in a column of the box; the box takes everything with it.
    if (control())
        delete ControlBox::boxOf(control()->parentWidget());
    NumericElement::deleteControl();
}

void SliderElement::setControlValue(const QString& value)
{
    if (auto* slider = qobject_cast<QSlider*>(control())) {
        disconnect(slider, SIGNAL(valueChanged(int)), this, SLOT(onClick()));
        slider->setValue(positionOf(DeviceNumber::integer(value).value_or(0)));
        connect(slider, SIGNAL(valueChanged(int)), this, SLOT(onClick()));
    }
    BoundaryElement::setControlValue(value);
}

void SliderElement::applyLimits()
{
    auto* slider = qobject_cast<QSlider*>(control());
    if (!slider)
        return;
    {
        const QSignalBlocker blocker(slider);
        slider->setRange(0, positionCount() - 1);
        slider->setPageStep(qMax(1, positionCount() / 10));
        slider->setValue(positionOf(DeviceNumber::integer(current()).value_or(0)));
    }
    updateLabels();
}

void SliderElement::updateLabels()
{
    QWidget* box = ControlBox::boxOf(control() ? control()->parentWidget() : nullptr);
    if (QLabel* minus = namedLabel(box, kMinusName))
        minus->setText(QString::number(lowest()));
    if (QLabel* plus = namedLabel(box, kPlusName))
        plus->setText(QString::number(highest()));
    if (QLabel* shown = namedLabel(box, kValueName))
        shown->setText(QString::number(valueAt(static_cast<QSlider*>(control())->value())));
    if (QLabel* marks = namedLabel(box, kColorMarkName))
        marks->setPixmap(colorMarkPixmap());
}

void SliderElement::onClick()
{
    if (auto* slider = qobject_cast<QSlider*>(control()))
        valueChange(QString::number(valueAt(slider->value())));
}
