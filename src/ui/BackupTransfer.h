#pragma once

#include <QString>
#include <QStringList>

class BackupDocument;
class Element;
class QWidget;

// The dialog's Export... and Import...: the same backup documents as tavctl. An import only
// puts the backup's values into the settings as edits; Apply sends them.
class BackupTransfer
{
public:
    // Asks for a file and writes every writable setting into it.
    static void exportSettings(QWidget* parent, Element* root, const QString& model);
    // Asks for a backup, checks it and turns its values into pending edits.
    static void importSettings(QWidget* parent, Element* root, const QString& model);

    // Checks every value of the backup that the tree has, identity settings left out; when
    // none is refused, stores them as edits. The refusals, one line each.
    static QStringList apply(Element* root, const BackupDocument& backup);
};
