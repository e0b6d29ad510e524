#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

class ConcreteElement;
class Element;
class SettingsParser;

// New values for the settings of a read tree, each checked by the setting's own rules and
// stored the way the dialog stores an edit, so that dependencies take effect; what was
// refused and why is kept for the caller. The change document then holds exactly the
// settings whose value differs from the device's.
class SettingsEdit
{
public:
    struct Refusal
    {
        QString id;
        QString value;
        QString reason;
    };

    // Evaluates every dependency once and takes the resulting values as the device's.
    explicit SettingsEdit(SettingsParser& parser);

    // Checks and stores one value; false when it was refused.
    bool assign(const QString& id, const QString& value);
    // Refuses the assigned settings that a dependency has disabled since. Call after the
    // last assignment.
    void refuseDisabled();

    const QList<Refusal>& refusals() const { return _refusals; }
    // Assigned settings whose value differs from the device's, in assignment order.
    QStringList changedIds() const;
    // The change document of every changed setting; empty when nothing changed.
    QString changeDocument();

    // A value setting by id, through an index made once: imports name thousands.
    ConcreteElement* element(const QString& id) const { return index.value(id); }

    // The value the device sent, before any rule of the reader or a dependency touched it.
    QString deviceValue(const QString& id) const { return asRead.value(id); }

    // Why a setting is disabled: the settings its enabling rules test.
    static QString disabledReason(const Element* element);

private:
    void refuse(const QString& id, const QString& value, const QString& reason);
    static bool remember(Element* element, void* data);

    SettingsParser& parser;
    QHash<QString, QString> asRead;
    QHash<QString, ConcreteElement*> index;
    QStringList assigned; // in order; the set answers "already assigned?" for thousands
    QSet<QString> assignedSet;
    QList<Refusal> _refusals;
};
