#pragma once

#include <QString>

// tavctl's texts: translated messages on standard error, results on standard output.
class CtlMessages
{
public:
    static QString tr(const char* text);
    static void error(const QString& message);
    static void out(const QString& line);
};
