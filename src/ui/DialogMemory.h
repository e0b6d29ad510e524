#pragma once

#include <QSize>
#include <QString>

// What the settings dialog keeps per printer model and user between runs: its size and
// whether the groups list is folded. Kept in the user's settings under the program's
// organisation.
class DialogMemory
{
public:
    explicit DialogMemory(const QString& model);

    // An invalid size when none was kept.
    QSize size() const;
    bool folded() const;
    void save(const QSize& size, bool folded) const;

    // The settings file all of the dialog's per-user choices go to.
    static QString organisation();
    static QString application();

private:
    QString key(const char* name) const;

    QString _group;
};
