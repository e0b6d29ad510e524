#pragma once

#include "PrinterState.h"
#include "PseudoTerminal.h"
#include "RequestParser.h"
#include "VirtualPrinterOptions.h"

#include <QElapsedTimer>
#include <QString>

#include <atomic>
#include <functional>

// A USB multi-function printer's data channel, emulated on a pseudo-terminal. Serves its
// settings specification in the TAV or the IDS framing, applies change documents to its own
// copy, carries out ink maintenance command blocks (by logging them), and can imitate the faults of
// a real device. One request is served at a time; the host may open and close the device for every
// exchange.
class VirtualPrinter
{
public:
    using Reporter = std::function<void(const QString&)>;

    explicit VirtualPrinter(const VirtualPrinterOptions& options);
    ~VirtualPrinter();
    VirtualPrinter(const VirtualPrinter&) = delete;
    VirtualPrinter& operator=(const VirtualPrinter&) = delete;

    // Plain-words log of what happens; stderr unless replaced. Set before start().
    void setReporter(Reporter reporter);
    // Told the device path whenever it changes (after start and after a hang-up).
    void setPathListener(std::function<void(const QString&)> listener);

    // Loads the specification and opens a terminal of its own.
    bool start(QString* error);
    // Loads the specification and serves on an existing terminal master. A hang-up then
    // ends serving, as a new terminal cannot be made in its place.
    bool attach(int masterFd, QString* error);
    // Loads the specification and serves on `port` (not owned) instead of a terminal.
    bool attachPort(PrinterPort* port, QString* error);

    const QString& devicePath() const { return terminal.slavePath(); }
    // The terminal's printer side, for measuring it bare before run() starts serving.
    int masterDescriptor() const { return terminal.master(); }
    const PrinterState& state() const { return printerState; }

    // Serves until stop(); returns 0, or 1 when the terminal could not be kept.
    int run();
    // Safe from any thread and from a signal handler.
    void stop();

    int requestsServed() const { return served.load(); }

private:
    enum class Reply
    {
        Short,
        SpecificationText
    };

    bool prepare(QString* error);
    void report(const QString& text) const;
    bool waitForInput(int timeoutMs);
    void readInput();
    void serve(const PrinterRequest& request);
    void serveTav(const PrinterRequest& request);
    void serveIds(const PrinterRequest& request);
    void serveInk(const PrinterRequest& request);
    void serveChanges(const QByteArray& document, PrinterRequest::Framing framing);
    QByteArray specificationServed() const;
    uint32_t sizeAnnounced() const;
    void sendReply(QByteArray reply, Reply kind);
    bool answerLate();
    bool writeAll(const char* data, int length);
    bool pause(int milliseconds);
    void hangUp();

    VirtualPrinterOptions options;
    PrinterState printerState;
    PseudoTerminal terminal;
    PrinterPort* port = &terminal;
    RequestParser parser;
    Reporter reporter;
    std::function<void(const QString&)> pathListener;
    QElapsedTimer lastInput;
    int wakePipe[2] = {-1, -1};
    std::atomic<bool> stopping{false};
    std::atomic<int> served{0};
    bool terminalLost = false;
    bool answered = false;
};
