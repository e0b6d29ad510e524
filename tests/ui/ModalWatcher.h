#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>

// Answers the message boxes a test provokes: records "title|text" of each and closes it,
// so that modal boxes never block a test.
class ModalWatcher : public QObject
{
public:
    explicit ModalWatcher(QObject* parent = nullptr)
        : QObject(parent)
    {
        timer.setInterval(20);
        connect(&timer, &QTimer::timeout, this, &ModalWatcher::poll);
        timer.start();
    }

    QStringList seen;

private:
    void poll()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || box == last)
            return;
        last = box;
        seen << box->windowTitle() + QLatin1Char('|') + box->text();
        QTimer::singleShot(0, box, [box] { box->done(QMessageBox::Ok); });
    }

    QTimer timer;
    QMessageBox* last = nullptr;
};
