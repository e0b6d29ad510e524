#pragma once

class IOClient;

// Keeps the data channel open for the duration of one operation. Opens it raw for reading
// and writing unless it is open already, and closes it again only if it opened it, so that
// nested users share one open file.
class IOClientLocker
{
public:
    // The classic raw read-write open mode, as the log reports it.
    static constexpr unsigned kRawReadWriteMode = 0x43;

    explicit IOClientLocker(IOClient* client);
    ~IOClientLocker();
    IOClientLocker(const IOClientLocker&) = delete;
    IOClientLocker& operator=(const IOClientLocker&) = delete;

    bool isValid() const { return valid; }
    bool isOpenedHere() const { return openedHere; }

private:
    IOClient* client;
    bool valid = false;
    bool openedHere = false;
};
