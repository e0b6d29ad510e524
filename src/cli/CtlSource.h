#pragma once

#include "cli/CtlStatus.h"
#include "xml/BackupDocument.h"
#include "xml/Capabilities.h"
#include "xml/SettingsParser.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <memory>
#include <vector>

// What a command reads its settings from: a printer's device node, a settings specification
// file (offline), or for some commands a backup file. Loads the element tree with the same
// reader as the dialog and sends change documents through the same client.
class CtlSource
{
public:
    enum Kind
    {
        Device,
        SpecificationFile,
        BackupFile,
    };

    CtlSource(const QString& shareDir, const QString& target, Kind kind, const QString& model);

    // A path given to diff: a backup or specification file when it is a regular file holding
    // one, else a device.
    static Kind kindOf(const QString& path);

    enum Depth
    {
        DocumentOnly, // the text alone; readSettings() then reads what lookup() needs
        Tree,         // the element tree
        TreeWithRules // with dependencies and translation, for commands that show or change
    };

    // Reads the settings (or the backup); on failure the message is on stderr.
    CtlStatus load(Depth depth);

    // After load(DocumentOnly): reads these settings as `show` sees them. Each is built from
    // its own markup when the document is plain and no declared dependency, translation or
    // repair of the reader can touch its value; otherwise the whole tree is read with its
    // rules and dependencies evaluated.
    CtlStatus readSettings(const QStringList& ids);
    // Whether readSettings() could do with the settings' own markup.
    bool fromMarkup() const { return _fromMarkup; }

    // A setting by id, from the tree when there is one, else from readSettings().
    const Element* lookup(const QString& id) const;

    Kind kind() const { return _kind; }
    QString target() const { return _target; }
    SettingsParser& parser() { return _parser; }
    const BackupDocument& backup() const { return _backup; }
    // --model, else the device ID's model, else the model the specification names.
    QString model() const { return _model; }

    // Sends one change document: done, refused by the device, or the device unreachable.
    CtlStatus send(const QString& changes);

private:
    CtlStatus loadDevice();
    CtlStatus loadFile();
    CtlStatus parse(const QByteArray& text);
    CtlStatus build(Depth depth);
    bool buildFromMarkup(const QStringList& ids);
    // Settings whose value a dependency declaration may change.
    bool declaredDependencies(QSet<QString>* ids) const;
    void applyTranslation();
    QString modelFromTree() const;
    QDomElement settingsNode() const;

    QString shareDir;
    QString _target;
    Kind _kind;
    QString _model;
    Capabilities caps;
    SettingsParser _parser;
    BackupDocument _backup;
    QByteArray _text;      // the specification as fetched or read
    QDomNode markupParent; // what the elements built from markup take as their parent node
    std::vector<std::unique_ptr<DomParser>> fragments;
    std::vector<std::unique_ptr<Element>> looked;
    QHash<QString, const Element*> built;
    bool _fromMarkup = false;
};
