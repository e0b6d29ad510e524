#include "app/SystemLocale.h"

#include "app/Log.h"

#include <clocale>

QString GetSystemLocale()
{
    const char* name = std::setlocale(LC_CTYPE, "");
    TAV_LOG(9, "::GetSystemLocale: setlocale: ret=<%s>", name ? name : "");
    return QString::fromLocal8Bit(name ? name : "").left(2);
}

QString localizedFileName(const QString& base, const QString& extension)
{
    return QString::asprintf("%s_%s.%s", qPrintable(base), qPrintable(GetSystemLocale()),
                             qPrintable(extension));
}
