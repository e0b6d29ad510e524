#pragma once

#include "xml/DomParser.h"

#include <QHash>
#include <QList>

class ILocalizable;

// The setting texts of one language, read from "tav_<ll>.xml": "message" elements under
// "root/Translation", each with an "Id" (an element id, or an id followed by " description")
// and a "Value".
class Translator : public DomParser
{
public:
    Translator();
    // Reads the file at once; isValid() tells whether it could be read.
    explicit Translator(const QString& fileName);

    bool open(QIODevice* device) override;
    bool setContent(const QString& text) override;
    bool setContent(const QByteArray& data);
    // Translation files are only ever read.
    void save(const QString& fileName) override;

    // The node whose "message" children are consulted; null when the document has none.
    QDomNode messages() const;

    // Starts from the defaults and walks the messages until both keys are found; a later
    // match replaces an earlier one until then. A matching "message" without "Value" is a
    // broken file and stops the program ("Wrong XML format").
    void lookup(const QString& id, const QString& defaultTitle, const QString& defaultDescription,
                QString* title, QString* description) const;

    // Replaces the object's string, title and description where the file has entries.
    void translate(const QString& id, ILocalizable& object) const;

    // Why the file could not be read; empty when it could.
    QString errorText() const { return _errorText; }

private:
    // One "message" that has an "Id", in document order.
    struct Message
    {
        QString key;
        QString value;
        bool hasValue = false;
    };

    // Indexes the messages once per document: a tree of thousands of settings looks up every
    // id, and walking the document for each would take seconds.
    void indexMessages();
    // The title or description a walk in document order ends with, given where it stops.
    QString valueAt(const QList<int>& positions, int stop, const QString& fallback) const;

    QString _errorText;
    bool _opened = false;
    QList<Message> _messages;
    QHash<QString, QList<int>> _positions;
};
