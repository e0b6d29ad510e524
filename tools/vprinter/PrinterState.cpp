#include "PrinterState.h"

#include "xml/DomParser.h"
#include "xml/ElementType.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSaveFile>

namespace {

const QStringList kSettingsRoots = {QStringLiteral("IDSInfo"),
                                    QStringLiteral("PrinterSettingsInfo")};

QDomElement firstDescendant(const QDomElement& parent, const QString& tag)
{
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() == tag)
            return child;
        const QDomElement found = firstDescendant(child, tag);
        if (!found.isNull())
            return found;
    }
    return QDomElement();
}

// Every tag under parent, each at its first place in document order: what firstDescendant()
// finds, for all tags in one walk.
void indexDescendants(const QDomElement& parent, QHash<QString, QDomElement>& index)
{
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (!index.contains(child.tagName()))
            index.insert(child.tagName(), child);
        indexDescendants(child, index);
    }
}

QDomElement nthChild(const QDomElement& parent, const QString& tag, int position)
{
    int count = 0;
    for (QDomElement child = parent.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag)) {
        if (++count == position)
            return child;
    }
    return QDomElement();
}

bool readFile(const QString& path, QByteArray& contents, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    contents = file.readAll();
    return true;
}

} // namespace

bool PrinterState::load(const QString& specificationFile, const QString& stateFile, QString* error)
{
    statePath = stateFile;
    const bool fromState = !stateFile.isEmpty() && QFile::exists(stateFile);
    if (!readFile(fromState ? stateFile : specificationFile, text, error))
        return false;
    DomParser parser;
    parsed = parser.setContent(text) && !settingsRoot(parser.document()).isNull();
    document = parsed ? parser.document() : QDomDocument();
    return true;
}

QDomElement PrinterState::settingsRoot(const QDomDocument& source) const
{
    const QDomElement root = source.documentElement();
    if (root.tagName() != QLatin1String("root"))
        return QDomElement();
    for (const QString& name : kSettingsRoots) {
        const QDomElement settings = root.firstChildElement(name);
        if (!settings.isNull())
            return settings;
    }
    return QDomElement();
}

QDomElement PrinterState::findSetting(const QString& id) const
{
    const QDomElement found = firstDescendant(settingsRoot(document), id);
    return found.isNull() ? findTableCell(id) : found;
}

// "<table>.<row>.<column>", both 1-based, counting the table's DataRow elements and the
// row's DataCell elements in order.
QDomElement PrinterState::findTableCell(const QString& id) const
{
    static const QRegularExpression cellId(QStringLiteral("^(.+)\\.(\\d+)\\.(\\d+)$"));
    const QRegularExpressionMatch match = cellId.match(id);
    if (!match.hasMatch())
        return QDomElement();
    const QDomElement table = firstDescendant(settingsRoot(document), match.captured(1));
    const QDomElement row = nthChild(table, QStringLiteral("DataRow"), match.captured(2).toInt());
    return nthChild(row, QStringLiteral("DataCell"), match.captured(3).toInt());
}

QString PrinterState::current(const QString& id) const
{
    if (!parsed)
        return QString();
    const QDomElement setting = findSetting(id);
    return setting.isNull() ? QString() : setting.attribute(QStringLiteral("CURRENT"));
}

bool PrinterState::collectChanges(const QDomElement& changesRoot, QList<Change>& changes,
                                  QStringList* notes) const
{
    // One walk for the whole document: a change document may name thousands of settings.
    QHash<QString, QDomElement> index;
    indexDescendants(settingsRoot(document), index);
    for (QDomElement item = changesRoot.firstChildElement(); !item.isNull();
         item = item.nextSiblingElement()) {
        const QString id = item.tagName();
        if (!item.hasAttribute(QStringLiteral("CURRENT"))) {
            notes->append(QStringLiteral("setting <%1> carries no value; skipped").arg(id));
            continue;
        }
        const QDomElement target = index.contains(id) ? index.value(id) : findTableCell(id);
        if (target.isNull()) {
            notes->append(QStringLiteral("unknown setting <%1>").arg(id));
            return false;
        }
        changes.append({target, id, item.attribute(QStringLiteral("CURRENT"))});
    }
    return true;
}

bool PrinterState::applyChanges(const QByteArray& changeDocument, QStringList* notes)
{
    QStringList ignored;
    if (!notes)
        notes = &ignored;
    if (!parsed) {
        notes->append(QStringLiteral("the served specification does not parse"));
        return false;
    }
    DomParser changes;
    const QDomElement changesRoot =
        changes.setContent(changeDocument) ? settingsRoot(changes.document()) : QDomElement();
    if (changesRoot.isNull()) {
        notes->append(QStringLiteral("the change document does not parse"));
        return false;
    }
    QList<Change> list;
    if (!collectChanges(changesRoot, list, notes))
        return false;
    bool modified = false;
    for (Change& change : list) {
        const ElementType type =
            ElementTypes::fromKeyword(change.target.attribute(QStringLiteral("TYPE")));
        if (change.value == QLatin1String("PRESSED") && ElementTypes::isReportableButton(type)) {
            notes->append(QStringLiteral("button <%1> pressed").arg(change.id));
            continue;
        }
        notes->append(
            QStringLiteral("setting <%1>: \"%2\" -> \"%3\"")
                .arg(change.id, change.target.attribute(QStringLiteral("CURRENT")), change.value));
        change.target.setAttribute(QStringLiteral("CURRENT"), change.value);
        modified = true;
    }
    if (modified) {
        text = document.toByteArray(1);
        save(notes); // a state file that cannot be written costs persistence, not the change
    }
    return true;
}

void PrinterState::save(QStringList* notes)
{
    if (statePath.isEmpty())
        return;
    QSaveFile file(statePath);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
        notes->append(QStringLiteral("cannot save %1: %2").arg(statePath, file.errorString()));
        return;
    }
    notes->append(QStringLiteral("state saved to %1").arg(statePath));
}
