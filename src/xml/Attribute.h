#pragma once

#include <QString>
#include <QStringList>

class Element;

// An attribute assignment of a constraint: set attribute NAME of the governed setting to
// VALUE. With REF="TRUE" the value is a reference: its "#"-separated parts are kept and the
// setting named by the first part is looked up when the declaration is read.
class Attribute
{
public:
    // Logs "tag='%s' name='%s' value='%s'".
    Attribute(const QString& tag, const QString& name, const QString& value, const QString& ref);
    virtual ~Attribute() = default;
    Attribute(const Attribute&) = delete;
    Attribute& operator=(const Attribute&) = delete;

    QString tag() const { return _tag; }
    QString name() const { return _name; }
    QString value() const { return _value; }
    QString ref() const { return _ref; }
    bool isReference() const { return _ref == QLatin1String("TRUE"); }

    // Set for references only.
    const QStringList& parts() const { return _parts; }
    Element* referencedElement() const { return _element; }
    void setReferencedElement(Element* element) { _element = element; }

private:
    QString _tag;
    QString _name;
    QString _value;
    QString _ref;
    QStringList _parts;
    Element* _element = nullptr;
};
