// Moves settings specifications of 100 KB, 1 MB and 10 MB from the virtual printer through
// TAVClient, beside the bare throughput of the same pseudo-terminal, and prints the ratio.

#include "../parse/SpecGenerator.h"
#include "ClientFetch.h"
#include "app/Log.h"
#include "vprinter/VirtualPrinter.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int kRounds = 9;

// Milliseconds to push `size` bytes through the terminal with plain reads and writes.
double bareMilliseconds(int master, const QString& slavePath, int size)
{
    const int slave = open(QFile::encodeName(slavePath).constData(), O_RDWR | O_NOCTTY);
    if (slave < 0)
        return -1;
    QByteArray out(size, 'x');
    QElapsedTimer clock;
    clock.start();
    std::thread writer([&] {
        int done = 0;
        while (done < size) {
            const ssize_t n = write(master, out.constData() + done, size_t(size - done));
            if (n > 0) {
                done += int(n);
            } else {
                pollfd ready{master, POLLOUT, 0};
                poll(&ready, 1, 100);
            }
        }
    });
    QByteArray in(65536, '\0');
    int received = 0;
    while (received < size) {
        const ssize_t n = read(slave, in.data(), size_t(in.size()));
        if (n <= 0)
            break;
        received += int(n);
    }
    const double elapsed = double(clock.nsecsElapsed()) / 1e6;
    writer.join();
    close(slave);
    return received == size ? elapsed : -1;
}

bool measure(const QString& folder, int size)
{
    const QString file = folder + QStringLiteral("/spec-%1.xml").arg(size);
    const QByteArray text = SpecGenerator::ofSize(size);
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size())
        return false;
    out.close();

    VirtualPrinterOptions options;
    options.specificationFile = file;
    VirtualPrinter printer(options);
    printer.setReporter([](const QString&) {});
    QString error;
    if (!printer.start(&error)) {
        fprintf(stderr, "%s\n", qPrintable(error));
        return false;
    }
    // Rounds alternate between the two so that both see the same load on a shared machine;
    // the best of each is the honest figure. The printer stays idle during a bare round:
    // nothing is written towards it.
    std::thread serving([&] { printer.run(); });
    double bare = 1e18;
    double client = 1e18;
    for (int round = 0; round < kRounds; ++round) {
        const double bareMs =
            bareMilliseconds(printer.masterDescriptor(), printer.devicePath(), int(text.size()));
        const double clientMs =
            ClientFetch::milliseconds(printer.devicePath(), int(text.size()), 3000);
        if (bareMs < 0 || clientMs < 0) {
            client = 1e18;
            break;
        }
        bare = qMin(bare, bareMs);
        client = qMin(client, clientMs);
    }
    printer.stop();
    serving.join();
    if (client > 1e17)
        return false;
    printf("%-8s bare %9.2f ms %8.1f MB/s   client %9.2f ms %8.1f MB/s   ratio %.2f\n",
           qPrintable(size >= 1 << 20 ? QStringLiteral("%1 MB").arg(size >> 20)
                                      : QStringLiteral("%1 KB").arg(size >> 10)),
           bare, text.size() / bare / 1e3, client, text.size() / client / 1e3, bare / client);
    return true;
}

} // namespace

int main()
{
    logLevel = 8; // the protocol trace would measure the terminal we print to
    QTemporaryDir folder;
    printf("specification transfer through the virtual printer, best of %d rounds\n", kRounds);
    for (int size : {100 << 10, 1 << 20, 10 << 20}) {
        if (!measure(folder.path(), size)) {
            fprintf(stderr, "bench_transfer: the %d-byte transfer failed\n", size);
            return 1;
        }
    }
    return 0;
}
