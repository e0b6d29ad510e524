#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QStringList>

// The printer's own copy of its settings specification. Change documents are applied to it
// (CURRENT by id at any depth, table cells by "<table>.<row>.<column>"), and the copy is kept
// in a state file so that a restarted printer serves the changed values.
class PrinterState
{
public:
    // Reads the state file when it exists, the specification file otherwise. A document
    // that does not parse is still served as it is, but accepts no changes.
    bool load(const QString& specificationFile, const QString& stateFile, QString* error);

    // The bytes served as the specification.
    const QByteArray& specification() const { return text; }
    bool isParsed() const { return parsed; }

    // Applies every setting of a change document, or none: a document naming an unknown
    // setting is rejected whole. `notes` receives one line per setting or reason.
    bool applyChanges(const QByteArray& changeDocument, QStringList* notes);

    // The value of a setting's CURRENT; a null string for an unknown id.
    QString current(const QString& id) const;

private:
    struct Change
    {
        QDomElement target;
        QString id;
        QString value;
    };

    QDomElement settingsRoot(const QDomDocument& document) const;
    QDomElement findSetting(const QString& id) const;
    QDomElement findTableCell(const QString& id) const;
    bool collectChanges(const QDomElement& changesRoot, QList<Change>& changes,
                        QStringList* notes) const;
    void save(QStringList* notes);

    QDomDocument document;
    QByteArray text;
    QString statePath;
    bool parsed = false;
};
