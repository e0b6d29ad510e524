// tav-vprinter: a USB multi-function printer's data channel on a pseudo-terminal, for
// trying the settings program without a printer and for tests.

#include "vprinter/SignalStop.h"
#include "vprinter/VirtualPrinter.h"
#include "vprinter/VirtualPrinterCommandLine.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <sys/prctl.h>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tav-vprinter"));

    VirtualPrinterCommandLine commandLine(QStringLiteral(
        "Emulates a USB printer's data channel on a pseudo-terminal and prints its path."));
    switch (commandLine.parse(QCoreApplication::arguments())) {
    case VirtualPrinterCommandLine::Outcome::Help:
        printf("%s", qPrintable(commandLine.helpText()));
        return 0;
    case VirtualPrinterCommandLine::Outcome::Error:
        fprintf(stderr, "tav-vprinter: %s\n", qPrintable(commandLine.error()));
        return 2;
    case VirtualPrinterCommandLine::Outcome::Run:
        break;
    }

    // Ends with the program that started it (a test that crashed, a demo that was closed):
    // left behind, it would keep holding that program's output pipes open.
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    VirtualPrinter printer(commandLine.options());
    QString error;
    printer.setPathListener([](const QString& path) {
        printf("%s\n", qPrintable(path));
        fflush(stdout);
    });
    if (!printer.start(&error)) {
        fprintf(stderr, "tav-vprinter: %s\n", qPrintable(error));
        return 1;
    }
    return SignalStop::run(printer);
}
