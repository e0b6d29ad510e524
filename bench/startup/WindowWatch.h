#pragma once

#include <QByteArray>

typedef struct _XDisplay Display;

// Watches the X server for a top-level window and reports when it is first exposed, that is
// mapped and ready for the program's first paint.
class WindowWatch
{
public:
    WindowWatch();
    ~WindowWatch();
    WindowWatch(const WindowWatch&) = delete;
    WindowWatch& operator=(const WindowWatch&) = delete;

    bool isValid() const { return display != nullptr; }

    // Forgets the events of windows seen so far.
    void reset();

    // Waits until a window whose name contains `name` receives its first Expose event, at
    // most `limitMs` milliseconds; false when none did.
    bool waitForExpose(const QByteArray& name, int limitMs);

private:
    bool nameMatches(unsigned long window, const QByteArray& name) const;

    Display* display = nullptr;
};
