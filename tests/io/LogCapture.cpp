#include "LogCapture.h"

#include "Log.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

LogCapture::LogCapture(uint32_t level)
    : savedLevel(logLevel)
{
    char name[] = "/tmp/tav-logXXXXXX";
    fd = mkstemp(name);
    unlink(name);
    fflush(stderr);
    savedStderr = dup(2);
    dup2(fd, 2);
    logLevel = level;
}

LogCapture::~LogCapture()
{
    fflush(stderr);
    dup2(savedStderr, 2);
    close(savedStderr);
    close(fd);
    logLevel = savedLevel;
}

QString LogCapture::text()
{
    fflush(stderr);
    QFile file;
    file.open(dup(fd), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    file.seek(0);
    return QString::fromLocal8Bit(file.readAll());
}
