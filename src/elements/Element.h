#pragma once

#include "elements/IElement.h"
#include "elements/ILocalizable.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstdint>

class Dependency;
class QDomElement;
class QTreeWidget;
class QTreeWidgetItem;
class Translator;

// Base of every setting element: identity, texts, the control it shows while on screen, and
// the dependency records that govern it or test it.
class Element : public QObject, public IElement, public ILocalizable
{
    Q_OBJECT
    Q_PROPERTY(QString temp READ temp WRITE setTemp)

public:
    Element(const QDomElement& node, int type, const QDomNode* parentNode, Element* parentElement);
    ~Element() override;

    // Walks and wiring.
    virtual bool iterateElements(ElementVisitor visitor, void* data);
    virtual void connectSignals(QObject* receiver);
    virtual bool translateElement(const Translator& translator);
    virtual Element* findElement(const QString& id);
    // Tests the rules that govern this element (those referring to initiator, all when null)
    // and puts their effects on it, its control and its row.
    virtual bool applyDependencies(Element* initiator);
    virtual void addToFavoriteList(QTreeWidget* list);
    virtual void addToParamList(QTreeWidget* list, QTreeWidgetItem* parentItem = nullptr);
    virtual bool hasComplexChildren() const;

    // IElement
    QString id() const override { return _id; }
    int type() const override { return _type; }
    QString typeName() const override;
    QList<Element*> dependentElements() const override { return _dependentElements; }
    void* associatedObject() const override { return _associatedObject; }
    const QDomNode* parentNode() const override { return _parentNode; }
    void addDependentElement(Element* element) override;
    void setAssociatedObject(void* object) override { _associatedObject = object; }
    QWidget* createControl(QWidget* parent) override;
    void deleteControl() override;
    void show() override;
    void hide() override;
    QWidget* control() const override { return _control.data(); }
    bool checkConstraints(Element* initiator, bool selfChecking) override;
    bool prepareConstraints() override { return true; }
    bool applyConstraintValues(const Constraint* constraint, bool satisfied) override;
    bool applyConstraintAttributes(const Constraint* constraint, bool satisfied) override;
    void checkDependencies() override;
    bool isConcrete() const override { return false; }
    bool isComplex() const override { return false; }
    bool isFactory() const override { return false; }
    bool isList() const override { return false; }
    bool isValid() override { return true; }
    QString toString() const override;
    QString temp() const override { return _temp; }
    void setTemp(const QString& s) override { _temp = s; }
    void setFormat(const QString& s) override { _format = s; }
    void setControl(QWidget* widget) override { _control = widget; }

    // ILocalizable
    QString string() const override { return _string; }
    QString title() const override { return _title; }
    QString description() const override { return _desc; }
    void setString(const QString& s) override { _string = s; }
    void setTitle(const QString& s) override { _title = s; }
    void setDescription(const QString& s) override { _desc = s; }

    // Runs applyConstraintValues, then applyConstraintAttributes; the latter's result.
    bool applyConstraint(const Constraint* constraint, bool satisfied);

    uint32_t level() const { return _level; }
    Element* parentElement() const { return _parentElement; }
    bool isEnabled() const { return _enabled; }
    void setEnabled(bool flag);
    QString format() const { return _format; }

    // Table cells are named after their place in the table rather than their tag; texts that
    // defaulted to the tag follow the new id.
    void setTableCellId(const QString& id);

    // The dependency records that govern this element, and those whose conditions or
    // references test it. Not owned: the reader keeps the records.
    const QList<Dependency*>& dependencies() const { return _dependencies; }
    const QList<Dependency*>& testedInDependencies() const { return _testedIn; }
    void addDependency(Dependency* dependency);
    void addTestedInDependency(Dependency* dependency);
    void clearDependencies();

    // Disconnects the pair first so that repeated wiring never doubles a connection. Takes
    // SIGNAL()/SLOT() texts.
    static bool reconnect(const QObject* sender, const char* signal, const QObject* receiver,
                          const char* slot);

signals:
    void visibleChanged(bool visible);

protected:
    // The widget that holds control: its "hbox" box when it has one, else the control itself.
    static QWidget* outermostWidget(QWidget* control);

    // Constraints that the check considers for this call, in record order.
    QList<const Constraint*> selectedConstraints(const Element* initiator, bool selfChecking) const;

private:
    uint32_t _level;
    QString _id;
    int _type;
    const QDomNode* _parentNode;
    Element* _parentElement;
    bool _enabled;
    QString _string;
    QString _title;
    QString _desc;
    QList<Element*> _dependentElements;
    void* _associatedObject;
    QPointer<QWidget> _control;
    QString _temp;
    QString _format;
    QList<Dependency*> _dependencies;
    QList<Dependency*> _testedIn;
};
