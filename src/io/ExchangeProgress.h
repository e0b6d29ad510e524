#pragma once

// What a device exchange that takes a while tells the person waiting for it, and how that
// person stops it. Both calls come from the thread that runs the exchange.
class ExchangeProgress
{
public:
    virtual ~ExchangeProgress() = default;

    // True once the person asked to stop; the exchange then ends at its next step.
    virtual bool cancelled() const = 0;
    // The device has not started to answer yet and the exchange goes on waiting for it.
    virtual void waitingForAnswer() = 0;
};
