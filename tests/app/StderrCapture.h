#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

// Redirects a file descriptor, standard error unless told otherwise, into a temporary file
// for the lifetime of the object or until text() is first asked for.
class StderrCapture
{
public:
    explicit StderrCapture(int fd = STDERR_FILENO)
        : fd(fd)
    {
        file.open();
        fflush(nullptr);
        saved = dup(fd);
        dup2(file.handle(), fd);
    }
    ~StderrCapture() { text(); }

    QByteArray text()
    {
        if (saved >= 0) {
            fflush(nullptr);
            dup2(saved, fd);
            close(saved);
            saved = -1;
        }
        file.seek(0);
        return file.readAll();
    }

private:
    QTemporaryFile file;
    const int fd;
    int saved = -1;
};
