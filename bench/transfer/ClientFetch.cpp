#include "ClientFetch.h"

#include "io/TAVClient.h"

#include <QElapsedTimer>

double ClientFetch::milliseconds(const QString& path, int expectedSize, int idleLimitMs)
{
    TAVClient client(path, nullptr);
    client.setTimings(200, 200, idleLimitMs);
    QElapsedTimer clock;
    clock.start();
    const QString text = client.getSpecification_tav();
    const double elapsed = double(clock.nsecsElapsed()) / 1e6;
    return text.size() == expectedSize ? elapsed : -1;
}
