#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>

// Answers the message boxes a test provokes: records "title|text" of each and closes it,
// so that modal boxes never block a test. A box is answered with the button named first in
// `answers` (object name or text without its '&') when there is one.
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
    QStringList answers;

private:
    void poll()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        // Marked rather than remembered: boxes on the stack reuse one another's address.
        if (!box || box->property("watched").toBool())
            return;
        box->setProperty("watched", true);
        seen << box->windowTitle() + QLatin1Char('|') + box->text();
        const QString answer = answers.isEmpty() ? QString() : answers.takeFirst();
        QTimer::singleShot(0, box, [box, answer] {
            for (QAbstractButton* button : box->buttons()) {
                if (!answer.isEmpty() &&
                    (button->objectName() == answer || button->text().remove('&') == answer)) {
                    button->click();
                    return;
                }
            }
            box->done(QMessageBox::Ok);
        });
    }

    QTimer timer;
};
