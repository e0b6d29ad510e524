#include "WindowWatch.h"

#include <QElapsedTimer>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <poll.h>

WindowWatch::WindowWatch()
    : display(XOpenDisplay(nullptr))
{
    if (display)
        XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
}

WindowWatch::~WindowWatch()
{
    if (display)
        XCloseDisplay(display);
}

void WindowWatch::reset()
{
    XSync(display, True);
}

bool WindowWatch::nameMatches(unsigned long window, const QByteArray& name) const
{
    XTextProperty property;
    if (!XGetWMName(display, window, &property) || !property.value)
        return false;
    const bool matches =
        QByteArray(reinterpret_cast<const char*>(property.value), int(property.nitems))
            .contains(name);
    XFree(property.value);
    return matches;
}

bool WindowWatch::waitForExpose(const QByteArray& name, int limitMs)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < limitMs) {
        if (!XPending(display)) {
            pollfd fd{ConnectionNumber(display), POLLIN, 0};
            poll(&fd, 1, 5);
            continue;
        }
        XEvent event;
        XNextEvent(display, &event);
        // Every new top-level window is watched; its name is known by the time it is exposed.
        if (event.type == CreateNotify)
            XSelectInput(display, event.xcreatewindow.window, ExposureMask);
        else if (event.type == Expose && nameMatches(event.xexpose.window, name))
            return true;
    }
    return false;
}
