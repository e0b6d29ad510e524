#include "elements/AboutInfo.h"

AboutInfo::AboutInfo(const QString& model, const QString& sw, const Version& version,
                     const QString& copyrights, const QPixmap& logo)
    : model(model)
    , sw(sw)
    , version(version)
    , copyrights(copyrights)
    , logo(logo)
{
}

QString AboutInfo::toString() const
{
    return QString::asprintf(
        "AboutInfo:\n\tmodel: <%s>\n\tsw: <%s>\n\tversion: <%s>\n\tcopyrights: <%s>\n\tlogo: "
        "%dx%dx%d",
        qPrintable(model), qPrintable(sw), qPrintable(version.toString()), qPrintable(copyrights),
        logo.width(), logo.height(), logo.depth());
}
