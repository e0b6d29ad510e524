#pragma once

#include "xml/MarkupScan.h"

#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVarLengthArray>

// Finds, in one scan of a settings specification's text, the markup of the settings that the
// element tree would find under given ids, without building the document or the tree: the
// reader's rules for which nodes become elements and which elements hold others are applied
// on the way. Declines when the text is not plain well-formed XML or has no settings root
// the scan can vouch for; the caller then reads the document in full.
class SettingLocator : public MarkupScan
{
public:
    explicit SettingLocator(const QStringList& ids);

    bool locate(const QByteArray& text);

    // The markup of the setting the tree finds under that id; empty when it has none.
    QByteArrayView markup(const QString& id) const;
    // The settings the document's dependency declarations ("root/Dependencies") name.
    const QSet<QString>& declared() const { return _declared; }

protected:
    void startElement(QByteArrayView name, const Attributes& attributes, qsizetype begin,
                      bool empty) override;
    void endElement(qsizetype end) override;

private:
    // The settings roots the reader may choose, and the dependency declarations.
    enum Region
    {
        rOutside,
        rIds,
        rPrinterSettings,
        rDependencies,
    };
    struct Open
    {
        Region region = rOutside;
        bool holdsElements = false; // a group or form whose children become elements
        int level = -1;             // the element's level in the tree; -1 when it is none
        qsizetype begin = 0;
        QString wanted; // the id this element answers, when it is the first of it
    };

    void enterRoot(QByteArrayView name, const Attributes& attributes, Open* open);
    void enterSetting(const Open& parent, QByteArrayView name, const Attributes& attributes,
                      Open* open);
    // TYPE and SUPPORTED as the reader sees them; false when a reference hides either.
    static bool kindAttributes(const Attributes& attributes, QString* keyword, QString* supported);

    QSet<QString> wanted;
    QList<QByteArray> wantedNames;
    QSet<QByteArrayView> wantedTags; // views of wantedNames, to pass over leaves unconverted
    bool wantsAbout = false;
    QVarLengthArray<Open, 64> stack;
    // Taken when the element starts, so that a group is found before its own children.
    QHash<QString, QByteArrayView> found[rDependencies];
    bool seen[rDependencies + 1] = {};
    bool rootBuilt[rDependencies] = {};
    bool declined = false;
    QSet<QString> _declared;
    const char* text = nullptr;
    Region chosen = rOutside;
};
