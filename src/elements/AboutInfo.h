#pragma once

#include "elements/Version.h"

#include <QPixmap>
#include <QString>

// What the about block shows: model, program name and version, copyright and logo.
class AboutInfo
{
public:
    AboutInfo() = default;
    AboutInfo(const QString& model, const QString& sw, const Version& version,
              const QString& copyrights, const QPixmap& logo);
    virtual ~AboutInfo() = default;
    AboutInfo(const AboutInfo&) = default;
    AboutInfo& operator=(const AboutInfo&) = default;

    QString model;
    QString sw;
    Version version;
    QString copyrights;
    QPixmap logo;

    // The diagnostic dump.
    QString toString() const;
};
