#pragma once

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QByteArray>
#include <QPointer>
#include <QString>

class QWidget;

// The application object that keeps one instance per user and printer. The first instance
// owns an X selection named after the user and the instance identifier; a later one finds
// it owned, writes its message into a property of the owner's window and ends.
class QtSingleApplication : public QApplication, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    QtSingleApplication(const QString& id, int& argc, char** argv, bool gui = true);
    ~QtSingleApplication() override;

    bool isRunning() const;
    // The hand-over is a single property write, so the timeout has nothing to wait for.
    bool sendMessage(const QString& message, int timeout = 5000);
    void initialize(bool activate = true);

    QString id() const { return instanceId; }

    // The selection name for a user and an identifier, as bytes in the local encoding, every
    // byte outside the characters an atom name may hold replaced by '-'.
    static QByteArray selectionName(const QByteArray& userName, const QString& id);
    static QByteArray currentUserName();

    static constexpr int kMaxMessageBytes = 4096;

signals:
    void messageReceived(const QString& message);

public slots:
    void activateMainWidget();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    bool hasDisplay() const;

    QString instanceId;
    QByteArray atomName;
    QPointer<QWidget> owner;
    unsigned long selectionAtom = 0;
    unsigned long typeAtom = 0;
    bool initialized = false;
};
