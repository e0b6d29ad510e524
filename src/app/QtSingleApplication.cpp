#include "app/QtSingleApplication.h"

#include "app/Log.h"

#include <QWidget>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <pwd.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

const char kTypeAtomName[] = "QtSingleApplicationType";

// Letters, digits, the 32 printable ASCII punctuation characters, blank, tab and newline.
bool allowedInAtomName(unsigned char c)
{
    return (c >= 0x20 && c <= 0x7e) || c == '\t' || c == '\n';
}

Display* x11Display()
{
    auto* x11 = qApp ? qApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->display() : nullptr;
}

Atom lookupAtom(Display* display, const QByteArray& name, bool create)
{
    return XInternAtom(display, name.constData(), create ? False : True);
}

} // namespace

QtSingleApplication::QtSingleApplication(const QString& id, int& argc, char** argv, bool gui)
    : QApplication(argc, argv, gui)
    , instanceId(id)
    , atomName(selectionName(currentUserName(), id))
{
}

QtSingleApplication::~QtSingleApplication()
{
    removeNativeEventFilter(this);
    delete owner;
}

QByteArray QtSingleApplication::selectionName(const QByteArray& userName, const QString& id)
{
    QByteArray name = userName + id.toLocal8Bit();
    for (char& c : name) {
        if (!allowedInAtomName(static_cast<unsigned char>(c)))
            c = '-';
    }
    return name;
}

QByteArray QtSingleApplication::currentUserName()
{
    const passwd* entry = getpwuid(getuid());
    return entry && entry->pw_name ? QByteArray(entry->pw_name) : QByteArray();
}

bool QtSingleApplication::hasDisplay() const
{
    if (x11Display())
        return true;
    TAV_LOG(10, "no X11 display: the single-instance guard is off");
    return false;
}

bool QtSingleApplication::isRunning() const
{
    Display* display = x11Display();
    if (!display)
        return false;
    const Atom selection = lookupAtom(display, atomName, false);
    return selection != None && XGetSelectionOwner(display, selection) != None;
}

bool QtSingleApplication::sendMessage(const QString& message, int /*timeout*/)
{
    if (!isRunning())
        return false;
    Display* display = x11Display();
    const Atom selection = lookupAtom(display, atomName, false);
    const Atom type = lookupAtom(display, kTypeAtomName, false);
    if (selection == None || type == None)
        return false;
    const Window window = XGetSelectionOwner(display, selection);
    if (window == None)
        return true; // the owner went away since isRunning(); it counts as handed over
    const QByteArray data = message.toUtf8();
    XChangeProperty(display, window, selection, type, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(data.constData()), int(data.size()));
    XFlush(display);
    return true;
}

void QtSingleApplication::initialize(bool activate)
{
    if (initialized || !hasDisplay())
        return;
    initialized = true;
    Display* display = x11Display();
    selectionAtom = lookupAtom(display, atomName, true);
    typeAtom = lookupAtom(display, kTypeAtomName, true);

    owner = new QWidget(nullptr);
    owner->setObjectName(QStringLiteral("QtSingleApplicationOwner"));
    XSetSelectionOwner(display, selectionAtom, Window(owner->winId()), CurrentTime);
    XFlush(display);
    installNativeEventFilter(this);

    if (activate)
        connect(this, SIGNAL(messageReceived(const QString&)), this, SLOT(activateMainWidget()));
}

bool QtSingleApplication::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t" || !selectionAtom)
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~0x80) != XCB_PROPERTY_NOTIFY)
        return false;
    const auto* notify = reinterpret_cast<const xcb_property_notify_event_t*>(event);
    if (notify->atom != selectionAtom || notify->state != XCB_PROPERTY_NEW_VALUE)
        return false;

    Atom actualType = None;
    int actualFormat = 0;
    unsigned long items = 0;
    unsigned long remaining = 0;
    unsigned char* data = nullptr;
    const int status =
        XGetWindowProperty(x11Display(), notify->window, selectionAtom, 0, kMaxMessageBytes / 4,
                           False, typeAtom, &actualType, &actualFormat, &items, &remaining, &data);
    bool handled = false;
    if (status == Success && actualFormat == 8 && actualType == typeAtom) {
        const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), int(items));
        handled = true;
        emit messageReceived(text);
    }
    if (data)
        XFree(data);
    return handled;
}

void QtSingleApplication::activateMainWidget()
{
    QWidget* widget = activeWindow();
    if (!widget) {
        const auto windows = topLevelWidgets();
        for (QWidget* w : windows) {
            if (w->isVisible() && w != owner) {
                widget = w;
                break;
            }
        }
    }
    if (!widget)
        return;
    if (widget->isMinimized())
        widget->setWindowState(widget->windowState() & ~Qt::WindowMinimized);
    widget->raise();
    widget->activateWindow();
}
