#pragma once

#include <QString>
#include <QStringList>

// Settings that identify one printer rather than configure a model: an import leaves them
// alone unless asked, so that a backup of one printer clones another without giving it the
// first one's address or name. The one list of them.
class IdentitySettings
{
public:
    static const QStringList& ids();
    static bool contains(const QString& id);
};
