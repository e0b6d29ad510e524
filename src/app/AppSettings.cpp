#include "app/AppSettings.h"

#include <QFile>

AppSettings::AppSettings(int argc, char** argv)
{
    args.reserve(argc);
    for (int i = 0; i < argc; ++i)
        args.append(QFile::decodeName(argv[i]));
}

AppSettings::~AppSettings() = default;
