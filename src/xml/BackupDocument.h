#pragma once

#include "xml/DomParser.h"

#include <QDateTime>
#include <QList>
#include <QPair>
#include <QString>

class Element;

// A saved copy of one printer's settings: its model, the device's version information, when
// it was taken, and every writable setting's id and value in document order.
//
//   <TavolorBackup format="1">
//     <Model>...</Model> <DeviceVersion>...</DeviceVersion> <Date>ISO 8601</Date>
//     <Settings><Setting id="SleepTimer" value="5"/>...</Settings>
//   </TavolorBackup>
class BackupDocument : public DomParser
{
public:
    typedef QPair<QString, QString> Value;

    QString model;
    QString deviceVersion;
    QDateTime date;
    QList<Value> values;

    // Every writable setting of the tree, with the device's version information.
    void takeFrom(Element* root);
    QByteArray toXml();
    // Refuses documents the reader's limits refuse, other documents and malformed entries;
    // error says why.
    bool read(const QByteArray& data, QString* error);

    // Model names as the printing system, the device ID and a specification give them:
    // case and blanks against underscores aside, one naming the other counts as the same.
    static bool sameModel(const QString& a, const QString& b);

private:
    static bool collect(Element* element, void* data);
};
