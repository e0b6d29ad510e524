#include "io/IOClientLocker.h"

#include "app/Log.h"
#include "io/IOClient.h"

IOClientLocker::IOClientLocker(IOClient* client)
    : client(client)
{
    TAV_LOG(11, "IODeviceLocker::IODeviceLocker(%p,%x)", static_cast<void*>(client),
            kRawReadWriteMode);
    if (!client) {
        TAV_LOG(11, "\tm_isValid=%d", int(valid));
        return;
    }
    if (client->isOpen()) {
        const unsigned mode = IOClient::classicOpenMode(client->openMode());
        TAV_LOG(11, "\talready open with mode %x", mode & 0xffu);
        valid = (mode & kRawReadWriteMode) == kRawReadWriteMode;
    } else {
        openedHere = client->open(QIODevice::ReadWrite | QIODevice::Unbuffered);
        valid = openedHere;
        if (!openedHere) {
            const QByteArray name = client->devicePath().toLocal8Bit();
            const unsigned mode = IOClient::classicOpenMode(client->openMode());
            TAV_LOG(9, "can't open device '%s' status=%d: open/readable/writable/raw: %d/%d/%d/%d",
                    name.constData(), int(client->error()), int(client->isOpen()),
                    int(client->isReadable()), int(client->isWritable()), int((mode & 0x40) != 0));
        }
    }
    TAV_LOG(11, "\tm_isValid=%d", int(valid));
}

IOClientLocker::~IOClientLocker()
{
    if (openedHere && client)
        client->close();
}
