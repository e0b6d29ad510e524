#pragma once

#include <QCoreApplication>
#include <QString>

class QWidget;

// Says at start-up that the printer's settings could not be read, why, and from which
// device, and lets the user try again.
class StartupError
{
    Q_DECLARE_TR_FUNCTIONS(StartupError)

public:
    // The box's text: the fixed first line, then the cause and the device path.
    static QString text(const QString& cause, const QString& devPath);
    // True when the user chose Retry; Close, Escape and the window's close button decline.
    static bool askRetry(const QString& cause, const QString& devPath, QWidget* parent = nullptr);
};
