#include "vprinter/SignalStop.h"

#include "vprinter/VirtualPrinter.h"

#include <csignal>

namespace {

VirtualPrinter* running = nullptr;

void onSignal(int)
{
    if (running)
        running->stop();
}

} // namespace

int SignalStop::run(VirtualPrinter& printer)
{
    running = &printer;
    struct sigaction action
    {
    };
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
    ::signal(SIGPIPE, SIG_IGN);
    const int status = printer.run();
    running = nullptr;
    return status;
}
