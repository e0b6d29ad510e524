#pragma once

#include <QString>

// A pseudo-terminal in raw mode that stands in for a printer's device file. The printer
// side is the master; the host opens the slave by its path. One slave descriptor is held
// open here, so that the host closing and reopening the device neither hangs the terminal
// up nor loses its raw settings.
class PseudoTerminal
{
public:
    PseudoTerminal() = default;
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // A new terminal owned by this object.
    bool open(QString* error);
    // An existing master (for example one an emulation framework made); not closed here.
    bool attach(int masterFd, QString* error);
    void close();

    int master() const { return masterFd; }
    bool ownsMaster() const { return ownMaster; }
    const QString& slavePath() const { return path; }

    // Points `linkPath` at the slave, replacing whatever was there.
    bool link(const QString& linkPath, QString* error);
    void removeLink();

    // Drops reply bytes the host never read, so the next exchange starts clean.
    void dropUnreadReplies();

private:
    bool openSlave(QString* error);

    int masterFd = -1;
    int slaveFd = -1;
    bool ownMaster = false;
    QString path;
    QString linked;
};
