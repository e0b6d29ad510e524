#pragma once

#include "elements/ILocalizable.h"

#include <QObject>
#include <QString>

class QDomElement;

// One choice of a list setting. Its id (the tag of its node) is the value the list holds when
// it is chosen; constraints may hide it.
class Parameter : public QObject, public ILocalizable
{
    Q_OBJECT
    Q_PROPERTY(QString id READ id)
    Q_PROPERTY(QString string READ string WRITE setString)
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QString description READ description WRITE setDescription)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible)
    Q_PROPERTY(QString format READ format WRITE setFormat)

public:
    explicit Parameter(const QDomElement& node);

    QString id() const { return _id; }
    bool isVisible() const { return _visible; }
    void setVisible(bool visible) { _visible = visible; }
    QString format() const { return _format; }
    void setFormat(const QString& format) { _format = format; }

    QString string() const override { return _string; }
    QString title() const override { return _title; }
    QString description() const override { return _description; }
    void setString(const QString& s) override { _string = s; }
    void setTitle(const QString& s) override { _title = s; }
    void setDescription(const QString& s) override { _description = s; }

private:
    QString _id;
    QString _string;
    QString _title;
    QString _description;
    bool _visible;
    QString _format;
};
