// tav-usbgadget: the virtual printer as a USB printer, through a FunctionFS function that a
// configfs gadget binds to a USB device controller.

#include "usbgadget/ControlEndpoint.h"
#include "usbgadget/FunctionFsPort.h"
#include "vprinter/SignalStop.h"
#include "vprinter/VirtualPrinter.h"
#include "vprinter/VirtualPrinterCommandLine.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace {

const QString kFunctionFs = QStringLiteral("ffs");
const QString kWakeProbes = QStringLiteral("wake-probes");
const QString kReady = QStringLiteral("ready");

ControlEndpoint::Identity identity(const VirtualPrinterCommandLine& commandLine, bool* ok)
{
    ControlEndpoint::Identity id;
    const bool ids = commandLine.options().ids;
    id.deviceId = QByteArray("MFG:Tavolor;MDL:Virtual USB Printer;CMD:") + (ids ? "IDS" : "TAV") +
                  ";CLS:PRINTER;DES:Tavolor virtual USB printer;";
    id.statusId = 0x0C0FFE;
    *ok = true;
    if (commandLine.commandLine().isSet(kWakeProbes))
        id.wakeProbes = commandLine.commandLine().value(kWakeProbes).toInt(ok);
    *ok = *ok && id.wakeProbes >= 0;
    return id;
}

int fail(const QString& text)
{
    fprintf(stderr, "tav-usbgadget: %s\n", qPrintable(text));
    return 1;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tav-usbgadget"));

    VirtualPrinterCommandLine commandLine(QStringLiteral(
        "Serves a settings specification as a USB printer through a mounted FunctionFS "
        "function; bind its gadget to a device controller once it has printed its ready line."));
    commandLine.addOption({kFunctionFs, QStringLiteral("The mounted FunctionFS folder <dir>."),
                           QStringLiteral("dir")});
    commandLine.addOption({kWakeProbes,
                           QStringLiteral("Start asleep; wake on the <n>-th status probe after "
                                          "a wake-up request."),
                           QStringLiteral("n")});
    commandLine.addOption({kReady, QStringLiteral("Create <file> once the function is described."),
                           QStringLiteral("file")});
    switch (commandLine.parse(QCoreApplication::arguments())) {
    case VirtualPrinterCommandLine::Outcome::Help:
        printf("%s", qPrintable(commandLine.helpText()));
        return 0;
    case VirtualPrinterCommandLine::Outcome::Error:
        fprintf(stderr, "tav-usbgadget: %s\n", qPrintable(commandLine.error()));
        return 2;
    case VirtualPrinterCommandLine::Outcome::Run:
        break;
    }
    const QString folder = commandLine.commandLine().value(kFunctionFs);
    bool ok = false;
    const ControlEndpoint::Identity id = identity(commandLine, &ok);
    if (folder.isEmpty() || !ok) {
        fprintf(stderr, "tav-usbgadget: --ffs names the FunctionFS folder; --wake-probes needs "
                        "a count\n");
        return 2;
    }

    const auto reporter = [](const QString& text) {
        fprintf(stderr, "tav-usbgadget: %s\n", qPrintable(text));
    };
    ControlEndpoint control(id, reporter);
    FunctionFsPort port(QStringLiteral("USB function %1").arg(folder));
    VirtualPrinter printer(commandLine.options());
    printer.setReporter(reporter);
    QString error;
    if (!control.open(folder, &error) || !port.open(folder, &error) ||
        !printer.attachPort(&port, &error))
        return fail(error);
    control.start();
    const QString ready = commandLine.commandLine().value(kReady);
    if (!ready.isEmpty())
        QFile(ready).open(QIODevice::WriteOnly);
    return SignalStop::run(printer);
}
