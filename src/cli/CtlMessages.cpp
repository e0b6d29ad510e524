#include "cli/CtlMessages.h"

#include <QCoreApplication>

#include <cstdio>

QString CtlMessages::tr(const char* text)
{
    return QCoreApplication::translate("CtlMessages", text);
}

void CtlMessages::error(const QString& message)
{
    std::fprintf(stderr, "tavctl: %s\n", message.toLocal8Bit().constData());
}

void CtlMessages::out(const QString& line)
{
    std::fputs(line.toUtf8().constData(), stdout);
    std::fputc('\n', stdout);
}
