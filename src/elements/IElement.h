#pragma once

#include <QList>
#include <QString>

class Constraint;
class Element;
class QDomNode;
class QWidget;

// A tree walk calls this for each element with the walk's opaque data; false stops the walk.
typedef bool (*ElementVisitor)(Element* element, void* data);

// What every setting element offers, whatever its kind.
class IElement
{
public:
    virtual ~IElement() = default;

    virtual QString id() const = 0;
    virtual int type() const = 0;
    virtual QString typeName() const = 0;
    virtual QList<Element*> dependentElements() const = 0;
    virtual void* associatedObject() const = 0;
    virtual const QDomNode* parentNode() const = 0;
    virtual void addDependentElement(Element* element) = 0;
    virtual void setAssociatedObject(void* object) = 0;
    virtual QWidget* createControl(QWidget* parent) = 0;
    virtual void deleteControl() = 0;
    virtual void show() = 0;
    virtual void hide() = 0;
    virtual QWidget* control() const = 0;
    virtual bool checkConstraints(Element* initiator, bool selfChecking) = 0;
    virtual bool prepareConstraints() = 0;
    virtual bool applyConstraintValues(const Constraint* constraint, bool satisfied) = 0;
    virtual bool applyConstraintAttributes(const Constraint* constraint, bool satisfied) = 0;
    virtual void checkDependencies() = 0;
    virtual bool isConcrete() const = 0;
    virtual bool isComplex() const = 0;
    virtual bool isFactory() const = 0;
    virtual bool isList() const = 0;
    virtual bool isValid() = 0;
    virtual QString toString() const = 0;
    virtual QString temp() const = 0;
    virtual void setTemp(const QString& s) = 0;
    virtual void setFormat(const QString& s) = 0;
    virtual void setControl(QWidget* widget) = 0;
};
