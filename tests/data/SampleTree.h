#pragma once

#include <QDomElement>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

// What a settings specification yields when read by the reader's rules, worked out from the
// document alone: which nodes become settings, under which id and kind, and which list
// parameters and table cells they bring. Lets the sample documents be checked for what they
// claim to exercise without depending on the element tree.
class SampleTree
{
public:
    struct Setting
    {
        QString id;
        int type = 0;
        QDomElement node;
    };

    // Reads the settings that hang under `top` (the node at the document's root path).
    explicit SampleTree(const QDomElement& top);

    // The kind the reader builds for a node, after the firmware workarounds and the subnet
    // mask repair; 0 when the node yields no setting at all.
    static int builtType(const QDomElement& node);
    static bool isContainer(int type);
    static bool isList(int type);
    // The children of a list node that become parameters (DisabledItem names left out).
    static QList<QDomElement> parameterNodes(const QDomElement& list);

    const QList<Setting>& settings() const { return _settings; }
    const QList<Setting>& containers() const { return _containers; }
    const QList<Setting>& cells() const { return _cells; }
    const QSet<QString>& parameters() const { return _parameters; }

    // Every id that names something built: containers, settings, cells.
    QSet<QString> ids() const;
    const Setting* find(const QString& id) const;

private:
    void collect(const QDomElement& node);
    void collectCells(const QString& tableId, const QDomElement& table);
    void addParameters(const QDomElement& list);

    QList<Setting> _settings;
    QList<Setting> _containers;
    QList<Setting> _cells;
    QSet<QString> _parameters;
};
