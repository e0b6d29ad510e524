#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

// Redirects file descriptor 2 into a temporary file for the lifetime of the object.
class StderrCapture
{
public:
    StderrCapture()
    {
        file.open();
        fflush(stderr);
        saved = dup(STDERR_FILENO);
        dup2(file.handle(), STDERR_FILENO);
    }
    ~StderrCapture() { restore(); }

    QByteArray text()
    {
        restore();
        file.seek(0);
        return file.readAll();
    }

private:
    void restore()
    {
        if (saved < 0)
            return;
        fflush(stderr);
        dup2(saved, STDERR_FILENO);
        close(saved);
        saved = -1;
    }

    QTemporaryFile file;
    int saved = -1;
};
