#pragma once

class VirtualPrinter;

// Runs a virtual printer until it ends by itself or a signal (interrupt, terminate, hang-up)
// asks it to stop, so that it closes its channel cleanly; a reader that goes away never
// kills it (SIGPIPE is ignored).
class SignalStop
{
public:
    static int run(VirtualPrinter& printer);
};
