#pragma once

#include "vprinter/PrinterPort.h"

#include <QString>

// A pseudo-terminal in raw mode that stands in for a printer's device file. The printer
// side is the master; the host opens the slave by its path. One slave descriptor is held
// open here, so that the host closing and reopening the device neither hangs the terminal
// up nor loses its raw settings.
class PseudoTerminal : public PrinterPort
{
public:
    PseudoTerminal() = default;
    ~PseudoTerminal() override;
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

    int inputDescriptor() const override { return masterFd; }
    int outputDescriptor() const override { return masterFd; }
    QString hostPath() const override { return path; }
    void dropUnreadReplies() override;
    // A new terminal in place of the old one, linked where the old one was. A master made
    // elsewhere cannot be replaced.
    bool hangUp(QString* error) override;

private:
    bool openSlave(QString* error);

    int masterFd = -1;
    int slaveFd = -1;
    bool ownMaster = false;
    QString path;
    QString linked;
};
