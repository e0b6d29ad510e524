#pragma once

#include "elements/IElement.h"
#include "elements/IElementFactory.h"
#include "xml/ChangeGenerator.h"
#include "xml/DomParser.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QStringList>

#include <cstdint>

class AboutInfo;
class Constraint;
class Dependency;
class Element;
class Translator;

// Turns a settings specification into the element tree and owns both; answers lookups,
// reads the dependency declarations and produces change documents.
class SettingsParser : public DomParser, public IElementFactory
{
public:
    // Deeper settings are left out (logged): devices nest a handful of levels, and a bound
    // keeps every recursive walk of the tree far from the stack's end.
    static constexpr uint32_t kMaxTreeDepth = 256;

    SettingsParser();
    ~SettingsParser() override;

    bool readPrinterSettings();

    Element* createElement(const QDomElement& node, const QDomNode* parentNode,
                           Element* parentElement) override;
    // The kind of element a node becomes, after the reader's workarounds; etUnknown when the
    // node is left out with its subtree. parentLevel: -1 for the settings root.
    static int typeToBuild(const QString& tag, const QString& keyword, const QString& supported,
                           int parentLevel);
    Element* createTableCellElement(const QDomElement& node, const QString& keyword,
                                    const QDomNode* parentNode, Element* parentElement) override;

    void setAboutInfo(const AboutInfo& info);
    const AboutInfo* aboutInfo() const { return _aboutInfo; }

    // "root/IDSInfo" or "root/PrinterSettingsInfo", whichever the last read used.
    QString getCurrentPath() const;
    bool isIdsRoot() const { return _idsRoot; }

    Element* root() const { return _root; }
    Element* findElement(const QString& id) const;
    bool enumerateElements(ElementVisitor visitor, void* context);

    // Applies the texts under "root/Translation" of the translator's document.
    bool translate(const Translator& translator);

    QString getAddressBookDescription() const;
    QString getEmailBookDescription() const;
    QString getPhoneBookDescription() const;

    // Reads "root/Dependencies" of the specification, with "dependencies.xml" of the current
    // directory merged in front, and attaches the records to their elements.
    bool readDependencies();
    const QList<Dependency*>& dependencies() const { return _dependencies; }

    // The change document of every changed setting (empty id), of one popup form, or of one
    // pressed button; empty when there is nothing to report.
    QString getChanges(const QString& id);
    QString getButton(Element* button);
    // Whether the last change document holds any setting or button.
    bool reportedAny() const { return !_changeParent.isNull(); }
    static bool generateButton(Element* element, void* context);

private:
    Element* buildElement(const QDomElement& node, int type, const QDomNode* parentNode,
                          Element* parentElement);
    void repairSubnetMasks();
    void deleteTree();
    QString bookDescription(const QString& keyword) const;
    static bool changeVisitor(Element* element, void* context);
    void resetChanges();
    void appendDescription(const Element* element);

    QDomNode dependenciesNode();
    void addGatewayRule(QDomNode& dependencies);
    void mergeDependencyFile(QDomNode& dependencies);
    Element* lookupElement(const QString& id);
    Dependency* readDependency(const QDomElement& node);
    Constraint* readConstraint(const QDomElement& node);
    void readSections(Constraint* constraint, const QDomElement& node);
    void attachDependency(Dependency* dependency);
    void clearDependencies();

    Element* _root = nullptr;
    bool _idsRoot = false;
    AboutInfo* _aboutInfo = nullptr;
    ChangeGenerator _generator;
    QDomNode _changeParent; // where the current request's descriptions go
    QStringList _formIds;
    QList<Dependency*> _dependencies;
    QSet<Element*> _attached;
    QHash<QString, Element*> _lookupCache; // valid while declarations are read
};
