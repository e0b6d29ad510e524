#pragma once

#include <QDialog>
#include <QList>
#include <QString>

class QTreeWidget;

// Shows what Apply is about to send: each pending setting with its group and its old and new
// value, the settings that would be left empty in a list of their own. Everything in it is
// device text and shown as plain text.
class ChangeReview : public QDialog
{
    Q_OBJECT

public:
    struct Change
    {
        QString title;
        QString group;
        QString before;
        QString after;
        // Sent without a value: listed apart.
        bool clears = false;
    };

    ChangeReview(const QString& model, const QList<Change>& changes, QWidget* parent = nullptr);

    // The user turned the review off with "Don't ask again".
    static bool isWanted();
    static void setWanted(bool wanted);

    // Shows the review unless it is turned off; true when the changes may be sent.
    static bool confirm(const QString& model, const QList<Change>& changes, QWidget* parent);

private:
    QTreeWidget* addList(const QString& heading, bool cleared, const QList<Change>& changes);
};
