#include "elements/AboutElement.h"

#include "elements/AboutInfo.h"
#include "elements/ControlBox.h"
#include "elements/TraceLog.h"

#include <QDomElement>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QLabel* addText(QWidget* parent, QLayout* layout, const QString& name, const QString& text)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout->addWidget(label);
    return label;
}

} // namespace

AboutElement::AboutElement(const QDomElement& node, int type, const QDomNode* parentNode,
                           Element* parentElement)
    : Element(node, type, parentNode, parentElement)
    , _aboutText(node.firstChildElement(QStringLiteral("About")).text())
{
}

AboutElement::~AboutElement()
{
    delete _aboutInfo;
}

void AboutElement::setAboutInfo(const AboutInfo& info)
{
    delete _aboutInfo;
    _aboutInfo = new AboutInfo(info);
}

QWidget* AboutElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "AboutElement::createControl:\n%s", qPrintable(toString()));
    auto* about = new QWidget(parent);
    about->setObjectName(QStringLiteral("about"));
    about->setAccessibleName(title());
    auto* layout = new QHBoxLayout(about);
    layout->setSpacing(ControlBox::kSpacing);
    auto* logo = new QLabel(about);
    logo->setObjectName(QStringLiteral("logoLabel"));
    logo->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    layout->addWidget(logo);
    auto* texts = new QVBoxLayout;
    layout->addLayout(texts, 1);
    if (_aboutInfo) {
        if (!_aboutInfo->logo.isNull())
            logo->setPixmap(_aboutInfo->logo);
        QLabel* model = addText(about, texts, QStringLiteral("modelLabel"), _aboutInfo->model);
        QFont font = model->font();
        font.setBold(true);
        model->setFont(font);
        addText(about, texts, QStringLiteral("swLabel"), _aboutInfo->sw);
        addText(about, texts, QStringLiteral("versionLabel"),
                tr("Version %1").arg(_aboutInfo->version.toString()));
        addText(about, texts, QStringLiteral("copyrightLabel"), _aboutInfo->copyrights);
    }
    if (!_aboutText.trimmed().isEmpty())
        addText(about, texts, QStringLiteral("aboutTextLabel"), _aboutText.trimmed());
    logo->setHidden(logo->pixmap().isNull());
    texts->addStretch(1);
    setControl(about);
    return about;
}
