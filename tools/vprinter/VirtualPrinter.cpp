#include "VirtualPrinter.h"

#include "io/InkCommands.h"

#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr char kEscape = 0x1B;
constexpr uint32_t kSpecificationSize = 0xF5000000;
constexpr uint32_t kSpecificationText = 0xF5010000;
constexpr uint32_t kApplyChanges = 0xF5020000;
constexpr int kTavReplySize = 8;
constexpr int kIdsReplySize = 10;
// A request that stops arriving half-way is dropped after this long.
constexpr int kIncompleteRequestMs = 2000;
// A host that stops reading a reply for this long has gone away.
constexpr int kStalledReplyMs = 3000;
constexpr int kPaceStepMs = 100;
constexpr int kReadChunk = 65536;

void putBigEndian32(char* target, uint32_t value)
{
    target[0] = char(value >> 24);
    target[1] = char(value >> 16);
    target[2] = char(value >> 8);
    target[3] = char(value);
}

QByteArray tavReply(uint32_t size, char result)
{
    QByteArray reply(kTavReplySize, '\0');
    reply[0] = kEscape;
    reply[1] = '#';
    putBigEndian32(reply.data() + 2, size);
    reply[7] = result;
    return reply;
}

QByteArray idsReply(uint32_t code, uint32_t value)
{
    QByteArray reply(kIdsReplySize, '\0');
    reply[0] = kEscape;
    reply[1] = '$';
    putBigEndian32(reply.data() + 2, code);
    putBigEndian32(reply.data() + 6, value);
    return reply;
}

} // namespace

VirtualPrinter::VirtualPrinter(const VirtualPrinterOptions& options)
    : options(options)
    , parser([this](const QString& text) { report(text); })
{
    if (pipe2(wakePipe, O_CLOEXEC | O_NONBLOCK) < 0)
        wakePipe[0] = wakePipe[1] = -1;
}

VirtualPrinter::~VirtualPrinter()
{
    terminal.close();
    for (int fd : wakePipe) {
        if (fd >= 0)
            ::close(fd);
    }
}

void VirtualPrinter::setReporter(Reporter newReporter)
{
    reporter = std::move(newReporter);
}

void VirtualPrinter::setPathListener(std::function<void(const QString&)> listener)
{
    pathListener = std::move(listener);
}

void VirtualPrinter::report(const QString& text) const
{
    if (reporter)
        reporter(text);
    else
        fprintf(stderr, "tav-vprinter: %s\n", qPrintable(text));
}

bool VirtualPrinter::prepare(QString* error)
{
    if (wakePipe[0] < 0) {
        *error = QStringLiteral("cannot make the wake-up pipe");
        return false;
    }
    if (!printerState.load(options.specificationFile, options.stateFile, error))
        return false;
    if (!printerState.isParsed())
        report(QStringLiteral("the specification does not parse; it is served as it is and "
                              "every change is rejected"));
    return true;
}

bool VirtualPrinter::start(QString* error)
{
    if (!prepare(error) || !terminal.open(error))
        return false;
    if (!options.linkPath.isEmpty() && !terminal.link(options.linkPath, error))
        return false;
    report(QStringLiteral("serving %1 on %2 in the %3 framing")
               .arg(options.specificationFile, terminal.slavePath(),
                    options.ids ? QStringLiteral("IDS") : QStringLiteral("TAV")));
    if (pathListener)
        pathListener(terminal.slavePath());
    return true;
}

bool VirtualPrinter::attach(int masterFd, QString* error)
{
    if (!prepare(error) || !terminal.attach(masterFd, error))
        return false;
    report(QStringLiteral("serving %1 on %2 in the %3 framing")
               .arg(options.specificationFile, terminal.slavePath(),
                    options.ids ? QStringLiteral("IDS") : QStringLiteral("TAV")));
    return true;
}

bool VirtualPrinter::attachPort(PrinterPort* external, QString* error)
{
    if (!prepare(error))
        return false;
    port = external;
    report(QStringLiteral("serving %1 on %2 in the %3 framing")
               .arg(options.specificationFile, port->hostPath(),
                    options.ids ? QStringLiteral("IDS") : QStringLiteral("TAV")));
    return true;
}

void VirtualPrinter::stop()
{
    stopping.store(true);
    if (wakePipe[1] >= 0) {
        const char byte = 1;
        [[maybe_unused]] const ssize_t ignored = ::write(wakePipe[1], &byte, 1);
    }
}

int VirtualPrinter::run()
{
    lastInput.start();
    while (!stopping.load() && !terminalLost) {
        if (waitForInput(kPaceStepMs))
            readInput();
        PrinterRequest request;
        while (!stopping.load() && !terminalLost && parser.next(request))
            serve(request);
        if (parser.hasPartial() && lastInput.elapsed() > kIncompleteRequestMs)
            parser.clear();
    }
    return terminalLost ? 1 : 0;
}

// True when the master has bytes; false on time-out or when stop() was called.
bool VirtualPrinter::waitForInput(int timeoutMs)
{
    pollfd fds[2] = {{port->inputDescriptor(), POLLIN, 0}, {wakePipe[0], POLLIN, 0}};
    if (poll(fds, 2, timeoutMs) <= 0)
        return false;
    if (fds[1].revents)
        return false;
    if (fds[0].revents & (POLLHUP | POLLERR)) {
        // Nobody holds the slave (never happens while it is held here): try again shortly.
        pause(20);
        return false;
    }
    return (fds[0].revents & POLLIN) != 0;
}

void VirtualPrinter::readInput()
{
    char buffer[kReadChunk];
    const ssize_t count = ::read(port->inputDescriptor(), buffer, sizeof buffer);
    if (count > 0) {
        parser.feed(buffer, int(count));
        lastInput.restart();
    }
}

void VirtualPrinter::serve(const PrinterRequest& request)
{
    ++served;
    port->dropUnreadReplies();
    if (request.framing == PrinterRequest::Ink) {
        serveInk(request); // understood whichever framing the settings use
        return;
    }
    const bool idsRequest = request.framing == PrinterRequest::Ids;
    if (idsRequest != options.ids) {
        report(QStringLiteral("ignoring a request in the %1 framing: this printer speaks %2")
                   .arg(idsRequest ? QStringLiteral("IDS") : QStringLiteral("TAV"),
                        options.ids ? QStringLiteral("IDS") : QStringLiteral("TAV")));
        return;
    }
    if (idsRequest)
        serveIds(request);
    else
        serveTav(request);
}

void VirtualPrinter::serveTav(const PrinterRequest& request)
{
    if (request.data == "ALL?") {
        report(QStringLiteral("request: TAV \"ALL?\" (specification size): announcing %1 bytes")
                   .arg(sizeAnnounced()));
        sendReply(tavReply(sizeAnnounced(), 0), Reply::Short);
    } else if (request.data == "DATA") {
        const QByteArray text = specificationServed();
        report(QStringLiteral("request: TAV \"DATA\" (specification text): sending %1 bytes")
                   .arg(text.size()));
        sendReply(text, Reply::SpecificationText);
    } else {
        report(QStringLiteral("request: TAV change document of %1 bytes").arg(request.data.size()));
        serveChanges(request.data, PrinterRequest::Tav);
    }
}

void VirtualPrinter::serveIds(const PrinterRequest& request)
{
    switch (request.code) {
    case kSpecificationSize:
        report(QStringLiteral("request: IDS 0xF5000000 (specification size): announcing %1 bytes")
                   .arg(sizeAnnounced()));
        sendReply(idsReply(request.code, sizeAnnounced()), Reply::Short);
        break;
    case kSpecificationText: {
        const QByteArray text = specificationServed();
        report(QStringLiteral("request: IDS 0xF5010000 (specification text): sending %1 bytes")
                   .arg(text.size()));
        sendReply(text, Reply::SpecificationText);
        break;
    }
    case kApplyChanges:
        report(QStringLiteral("request: IDS 0xF5020000 (apply changes): %1 bytes")
                   .arg(request.data.size()));
        serveChanges(request.data, PrinterRequest::Ids);
        break;
    default:
        report(QStringLiteral("request: IDS 0x%1 is no command of this printer; not answered")
                   .arg(request.code, 8, 16, QLatin1Char('0')));
    }
}

// Logs the block by name with its bytes; only a scan is answered.
void VirtualPrinter::serveInk(const PrinterRequest& request)
{
    const QByteArray tag = request.data.mid(InkCommands::kMarkerSize, InkCommands::kTagSize);
    const QString name = InkCommands::actionName(tag);
    if (name.isEmpty()) {
        report(QStringLiteral("ink command with the unknown tag \"%1\"; ignored")
                   .arg(QString::fromLatin1(tag)));
        return;
    }
    report(QStringLiteral("ink command: %1 \"%2\" after %3 zero bytes")
               .arg(name, QString::fromLatin1(request.data))
               .arg(request.padding));
    if (options.inkFail)
        report(QStringLiteral("fault: refusing the %1").arg(name));
    if (tag != InkCommands::kScanAlign)
        return;
    sendReply(QByteArray(options.inkFail ? InkCommands::kScanFailed : InkCommands::kScanDone),
              Reply::Short);
}

void VirtualPrinter::serveChanges(const QByteArray& document, PrinterRequest::Framing framing)
{
    bool accepted = false;
    if (options.rejectChanges) {
        report(QStringLiteral("fault: rejecting every change"));
    } else {
        QStringList notes;
        accepted = printerState.applyChanges(document, &notes);
        for (const QString& note : notes)
            report(note);
    }
    report(accepted ? QStringLiteral("changes accepted") : QStringLiteral("changes rejected"));
    // The framings report acceptance with opposite senses.
    const QByteArray reply = framing == PrinterRequest::Tav
                                 ? tavReply(0, accepted ? 0 : 1)
                                 : idsReply(kApplyChanges, accepted ? 1 : 0);
    sendReply(reply, Reply::Short);
}

QByteArray VirtualPrinter::specificationServed() const
{
    const QByteArray& text = printerState.specification();
    if (!options.brokenXml)
        return text;
    return text.left(text.size() / 2) + "<broken";
}

uint32_t VirtualPrinter::sizeAnnounced() const
{
    if (options.announcedSize)
        return options.announcedSize;
    return uint32_t(specificationServed().size());
}

void VirtualPrinter::sendReply(QByteArray reply, Reply kind)
{
    if (options.mute) {
        report(QStringLiteral("fault: not answering"));
        return;
    }
    const bool late = !answered && options.lateFirstMs > 0;
    answered = true;
    if (late && !answerLate())
        return;
    if (options.garbage && kind == Reply::Short) {
        for (char& byte : reply)
            byte = char(QRandomGenerator::global()->bounded(256));
        report(QStringLiteral("fault: answering %1 random bytes").arg(reply.size()));
    }
    if (options.shortReplies) {
        report(QStringLiteral("fault: sending %1 of %2 bytes")
                   .arg(reply.size() / 2)
                   .arg(reply.size()));
        reply.truncate(reply.size() / 2);
    }
    if (options.hangUp && kind == Reply::SpecificationText) {
        const int half = qMax(1, int(reply.size() / 2));
        if (writeAll(reply.constData(), half)) {
            report(QStringLiteral("fault: hanging up after %1 of %2 bytes")
                       .arg(half)
                       .arg(reply.size()));
            hangUp();
        }
        return;
    }
    if (writeAll(reply.constData(), int(reply.size())) && late)
        report(QStringLiteral("fault: late answer sent"));
}

// A printer busy with something else: the first reply waits, and so does every request that
// arrives meanwhile. False when stopped while waiting.
bool VirtualPrinter::answerLate()
{
    report(
        QStringLiteral("fault: answering the first request after %1 ms").arg(options.lateFirstMs));
    return pause(options.lateFirstMs);
}

// Sleeps, but wakes for stop(); false when stopping.
bool VirtualPrinter::pause(int milliseconds)
{
    pollfd wake{wakePipe[0], POLLIN, 0};
    poll(&wake, 1, milliseconds);
    return !stopping.load();
}

bool VirtualPrinter::writeAll(const char* data, int length)
{
    const int step =
        options.bytesPerSecond > 0 ? qMax(1, options.bytesPerSecond * kPaceStepMs / 1000) : length;
    QElapsedTimer stalled;
    stalled.start();
    int done = 0;
    while (done < length && !stopping.load()) {
        const ssize_t written =
            ::write(port->outputDescriptor(), data + done, size_t(qMin(step, length - done)));
        if (written > 0) {
            done += int(written);
            stalled.restart();
            if (options.bytesPerSecond > 0 && done < length && !pause(kPaceStepMs))
                break;
            continue;
        }
        if (written < 0 && errno != EAGAIN && errno != EINTR) {
            report(QStringLiteral("cannot write the reply: %1")
                       .arg(QString::fromLocal8Bit(strerror(errno))));
            return false;
        }
        if (stalled.elapsed() > kStalledReplyMs) {
            report(QStringLiteral("the host stopped reading; %1 bytes of the reply dropped")
                       .arg(length - done));
            port->dropUnreadReplies();
            return false;
        }
        pollfd out{port->outputDescriptor(), POLLOUT, 0};
        poll(&out, 1, kPaceStepMs);
    }
    return done == length;
}

void VirtualPrinter::hangUp()
{
    parser.clear();
    QString error;
    if (!port->hangUp(&error)) {
        report(QStringLiteral("cannot serve again: %1").arg(error));
        terminalLost = true;
        return;
    }
    report(QStringLiteral("serving again on %1").arg(port->hostPath()));
    if (pathListener)
        pathListener(port->hostPath());
}
