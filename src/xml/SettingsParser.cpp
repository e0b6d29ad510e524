#include "xml/SettingsParser.h"

#include "elements/AboutElement.h"
#include "elements/AboutInfo.h"
#include "elements/AddressBookElement.h"
#include "elements/ButtonElement.h"
#include "elements/ComplexElement.h"
#include "elements/DateTimeElement.h"
#include "elements/DialEditElement.h"
#include "elements/EditElement.h"
#include "elements/EmailBookElement.h"
#include "elements/FloatElement.h"
#include "elements/FormElement.h"
#include "elements/IPAddressElement.h"
#include "elements/InkCartridgeAlignMFPElement.h"
#include "elements/InkCartridgeAlignSFPElement.h"
#include "elements/InkCartridgeCleanElement.h"
#include "elements/InkTestPagePrintElement.h"
#include "elements/ListElement.h"
#include "elements/NumericElement.h"
#include "elements/PaperSizeElement.h"
#include "elements/PhoneBookElement.h"
#include "elements/SliderElement.h"
#include "elements/SubnetMaskElement.h"
#include "elements/TableCellListElement.h"
#include "elements/TableCellPaperSizeElement.h"
#include "elements/TableElement.h"
#include "elements/TextElement.h"
#include "elements/TraceLog.h"
#include "elements/WirelessSetupElement.h"
#include "xml/Attribute.h"
#include "xml/ConditionNode.h"
#include "xml/Constraint.h"
#include "xml/Dependency.h"
#include "xml/ElementType.h"
#include "xml/GatewayValidityConstraint.h"
#include "xml/RefAttribute.h"
#include "xml/Translator.h"

#include <QFile>
#include <QTextStream>

namespace {

const QString kIdsPath = QStringLiteral("root/IDSInfo");
const QString kPrinterSettingsPath = QStringLiteral("root/PrinterSettingsInfo");
const QString kDependenciesPath = QStringLiteral("root/Dependencies");
const QString kDependencyFile = QStringLiteral("dependencies.xml");

// The next node of a document-order walk below (and excluding the end of) start.
QDomNode nextInDocument(const QDomNode& node, const QDomNode& start)
{
    if (!node.firstChild().isNull())
        return node.firstChild();
    for (QDomNode n = node; !n.isNull() && n != start; n = n.parentNode()) {
        if (!n.nextSibling().isNull())
            return n.nextSibling();
    }
    return QDomNode();
}

} // namespace

SettingsParser::SettingsParser() = default;

SettingsParser::~SettingsParser()
{
    deleteTree();
    delete _aboutInfo;
}

void SettingsParser::deleteTree()
{
    clearDependencies();
    delete _root;
    _root = nullptr;
}

QString SettingsParser::getCurrentPath() const
{
    return _idsRoot ? kIdsPath : kPrinterSettingsPath;
}

bool SettingsParser::readPrinterSettings()
{
    if (!isValid()) {
        TAV_LOG(9, "SettingsParser is invalid");
        return false;
    }
    _idsRoot = true;
    QDomNode rootNode = find(kIdsPath);
    if (rootNode.isNull()) {
        _idsRoot = false;
        rootNode = find(kPrinterSettingsPath);
    }
    TAV_LOG(10, "settingsPath: <%s>", qPrintable(getCurrentPath()));
    if (rootNode.isNull()) {
        TAV_LOG(9, "SettingsParser::readPrinterSettings() can't go to %s",
                qPrintable(getCurrentPath()));
        return false;
    }
    repairSubnetMasks();
    if (!rootNode.isElement()) {
        TAV_LOG(9, "!root.isElement()");
        return false;
    }
    deleteTree();
    _root = createElement(rootNode.toElement(), nullptr, nullptr);

    if (_aboutInfo) {
        auto* about = qobject_cast<AboutElement*>(findElement(FixedIds::AboutElement));
        if (!about)
            TAV_LOG(9, "'About' element is unavailable");
        else
            about->setAboutInfo(*_aboutInfo);
    }
    return true;
}

void SettingsParser::repairSubnetMasks()
{
    const QString ipAddress = ElementTypes::keyword(etIPAddress);
    const QString subnetMask = ElementTypes::keyword(etSubnetMask);
    const QString typeAttribute = QStringLiteral("TYPE");
    for (QDomNode node = doc.firstChild(); !node.isNull(); node = nextInDocument(node, doc)) {
        if (!node.isElement())
            continue;
        QDomElement element = node.toElement();
        if (element.tagName() == FixedIds::SubnetMask &&
            element.attribute(typeAttribute) == ipAddress)
            element.setAttribute(typeAttribute, subnetMask);
    }
}

int SettingsParser::typeToBuild(const QString& tag, const QString& keyword,
                                const QString& supported, int parentLevel)
{
    int type = ElementTypes::fromKeyword(keyword);
    if (supported == QLatin1String("FALSE"))
        return etUnknown;
    if (FixedIds::isIgnored(tag)) {
        TAV_LOG(9, "Element <%s> is ignored", qPrintable(tag));
        return etUnknown;
    }
    if (parentLevel >= 0 && uint32_t(parentLevel) + 1 >= kMaxTreeDepth) {
        TAV_LOG(9,
                "Warning: element <%s> nested deeper than %u levels is left out with its "
                "subtree",
                qPrintable(tag), unsigned(kMaxTreeDepth));
        return etUnknown;
    }

    if (type == etEdit && FixedIds::isDateTimeWorkaround(tag)) {
        TAV_LOG(10, "workaround for firmware DateTime defect (tagName='%s')", qPrintable(tag));
        type = etDateTime;
    } else if (type == etButton && FixedIds::isWirelessWorkaround(tag)) {
        TAV_LOG(10, "workaround for firmware WirelessSetup defect (tagName='%s')", qPrintable(tag));
        type = etWirelessSetup;
    } else if (type == etEmpty) {
        type = etGroup;
    }

    if (type == etUnknown || type == etInkJetMaintenance || type > kLastElementType) {
        TAV_LOG(9, "Warning: skipping element with unexpected TYPE='%s'", qPrintable(keyword));
        return etUnknown;
    }
    return type;
}

Element* SettingsParser::createElement(const QDomElement& node, const QDomNode* parentNode,
                                       Element* parentElement)
{
    const QString keyword = node.attribute(QStringLiteral("TYPE"), QString(""));
    const QString tag = node.tagName();
    TAV_TRACE(11, "parentNode=%p parentElement=%p tagName='%s' type='%s' elementType=%i",
              static_cast<const void*>(parentNode), static_cast<void*>(parentElement),
              qPrintable(tag), qPrintable(keyword), int(ElementTypes::fromKeyword(keyword)));
    const int type = typeToBuild(tag, keyword, node.attribute(QStringLiteral("SUPPORTED")),
                                 parentElement ? int(parentElement->level()) : -1);
    if (type == etUnknown)
        return nullptr;

    QDomElement target = node;
    if (type == etAbout)
        target.setTagName(FixedIds::AboutElement);
    Element* element = buildElement(target, type, parentNode, parentElement);
    if (element && !element->string().isEmpty()) {
        element->setTitle(element->string());
        element->setDescription(element->string());
    }
    return element;
}

Element* SettingsParser::buildElement(const QDomElement& node, int type, const QDomNode* parentNode,
                                      Element* parentElement)
{
    switch (type) {
    case etAbout:
        return new AboutElement(node, type, parentNode, parentElement);
    case etAddressBook:
        return new AddressBookElement(node, type, parentNode, parentElement);
    case etButton:
        return new ButtonElement(node, type, parentNode, parentElement);
    case etCheckbox:
    case etList:
    case etRadio:
        return new ListElement(node, type, parentNode, parentElement);
    case etDateTime:
        return new DateTimeElement(node, type, parentNode, parentElement);
    case etDialEdit:
        return new DialEditElement(node, type, parentNode, parentElement);
    case etEdit:
        return new EditElement(node, type, parentNode, parentElement);
    case etEmailBook:
        return new EmailBookElement(node, type, parentNode, parentElement);
    case etFloat:
        return new FloatElement(node, type, parentNode, parentElement);
    case etForm:
        return new FormElement(node, type, parentNode, parentElement, this);
    case etGroup:
        return new ComplexElement(node, type, parentNode, parentElement, this);
    case etInkCartridgeAlignMFP:
    case etInkCartridgeAlignMFP_XML:
        return new InkCartridgeAlignMFPElement(node, type, parentNode, parentElement);
    case etInkCartridgeAlignSFP:
    case etInkCartridgeAlignSFP_XML:
        return new InkCartridgeAlignSFPElement(node, type, parentNode, parentElement);
    case etInkCartridgeClean:
    case etInkCartridgeClean_XML:
        return new InkCartridgeCleanElement(node, type, parentNode, parentElement);
    case etInkTestPagePrint:
    case etInkTestPagePrint_XML:
        return new InkTestPagePrintElement(node, type, parentNode, parentElement);
    case etInteger:
        return new NumericElement(node, type, parentNode, parentElement);
    case etIPAddress:
        return new IPAddressElement(node, type, parentNode, parentElement);
    case etPaperSize:
        return new PaperSizeElement(node, type, parentNode, parentElement);
    case etPhoneBook:
        return new PhoneBookElement(node, type, parentNode, parentElement);
    case etSlider:
        return new SliderElement(node, type, parentNode, parentElement);
    case etSubnetMask:
        return new SubnetMaskElement(node, type, parentNode, parentElement);
    case etTable:
        return new TableElement(node, type, parentNode, parentElement, this);
    case etText:
        return new TextElement(node, type, parentNode, parentElement);
    case etWirelessSetup:
        return new WirelessSetupElement(node, type, parentNode, parentElement);
    default:
        return nullptr;
    }
}

Element* SettingsParser::createTableCellElement(const QDomElement& node, const QString& keyword,
                                                const QDomNode* parentNode, Element* parentElement)
{
    const int type = ElementTypes::fromKeyword(keyword);
    if (type == etUnknown) {
        TAV_LOG(9, "Warning: skipping element with unexpected TYPE='%s'", qPrintable(keyword));
        return nullptr;
    }
    if (type == etList)
        return new TableCellListElement(node, type, parentNode, parentElement);
    if (type == etPaperSize)
        return new TableCellPaperSizeElement(node, type, parentNode, parentElement);
    return createElement(node, parentNode, parentElement);
}

void SettingsParser::setAboutInfo(const AboutInfo& info)
{
    delete _aboutInfo;
    _aboutInfo = new AboutInfo(info);
}

Element* SettingsParser::findElement(const QString& id) const
{
    TAV_ASSERT(_root);
    return _root ? _root->findElement(id) : nullptr;
}

bool SettingsParser::enumerateElements(ElementVisitor visitor, void* context)
{
    TAV_TRACE(11, "getCurrentPath()='%s'", qPrintable(getCurrentPath()));
    TAV_ASSERT(_root);
    return _root ? _root->iterateElements(visitor, context) : false;
}

bool SettingsParser::translate(const Translator& translator)
{
    if (translator.messages().isNull() || !_root)
        return false;
    return _root->translateElement(translator);
}

QString SettingsParser::bookDescription(const QString& keyword) const
{
    if (!isValid()) {
        TAV_LOG(9, "SettingsParser is invalid");
        return QString();
    }
    const QDomNode start = find(getCurrentPath());
    if (start.isNull()) {
        TAV_LOG(9, "SettingsParser::readPrinterSettings() can't go to <%s>",
                qPrintable(getCurrentPath()));
        return QString();
    }
    const QString typeAttribute = QStringLiteral("TYPE");
    for (QDomNode node = start; !node.isNull(); node = nextInDocument(node, start)) {
        if (node.isElement() && node.toElement().attribute(typeAttribute) == keyword) {
            QString text;
            QTextStream stream(&text);
            node.save(stream, 4);
            return text;
        }
    }
    return QString();
}

QString SettingsParser::getAddressBookDescription() const
{
    return bookDescription(ElementTypes::keyword(etAddressBook));
}

QString SettingsParser::getEmailBookDescription() const
{
    return bookDescription(ElementTypes::keyword(etEmailBook));
}

QString SettingsParser::getPhoneBookDescription() const
{
    return bookDescription(ElementTypes::keyword(etPhoneBook));
}

void SettingsParser::resetChanges()
{
    _generator.reset();
    _changeParent = QDomNode();
}

void SettingsParser::appendDescription(const Element* element)
{
    // The path is found or created once per request: every description goes under it.
    if (_changeParent.isNull())
        _changeParent = _generator.createPath(splitPath(getCurrentPath()));
    _changeParent.appendChild(_generator.createDescription(element));
}

bool SettingsParser::changeVisitor(Element* element, void* context)
{
    auto* parser = static_cast<SettingsParser*>(context);
    const auto* concrete = qobject_cast<const ConcreteElement*>(element);
    if (!concrete || !concrete->isEnabled())
        return true;
    if (concrete->current() == concrete->initial())
        return true;
    if (concrete->isClearingPending()) {
        TAV_LOG(10, "<%s> emptied at load and not confirmed: not sent", qPrintable(concrete->id()));
        return true;
    }
    parser->appendDescription(concrete);
    return true;
}

bool SettingsParser::generateButton(Element* element, void* context)
{
    TAV_TRACE(11, "generateButton");
    auto* parser = static_cast<SettingsParser*>(context);
    const Element* pressed = parser->_generator.pressedButton();
    if (pressed && ElementTypes::isReportableButton(element->type()) &&
        element->id() == pressed->id())
        parser->appendDescription(element);
    return true;
}

QString SettingsParser::getChanges(const QString& id)
{
    TAV_LOG(10, "SettingsParser::getChanges(<%s>)", qPrintable(id));
    if (!isValid()) {
        TAV_LOG(9, "SettingsParser is invalid");
        return QString();
    }
    if (!_root)
        return QString();
    if (id.isEmpty()) {
        resetChanges();
        enumerateElements(changeVisitor, this);
        return _generator.getChanges();
    }
    Element* element = findElement(id);
    TAV_LOG(10, "ie=%p", static_cast<void*>(element));
    if (!element)
        return QString();
    TAV_LOG(10, "ie->elementType()=%d", element->type());
    if (ElementTypes::isReportableButton(element->type()))
        return getButton(element);
    if (element->type() != etForm)
        return QString();
    resetChanges();
    _formIds.append(id);
    element->iterateElements(changeVisitor, this);
    _formIds.removeFirst();
    return _generator.getChanges();
}

QString SettingsParser::getButton(Element* button)
{
    TAV_LOG(10, "SettingsParser::getButton(%p)", static_cast<void*>(button));
    if (!button)
        return QString();
    resetChanges();
    _generator.setPressedButton(button);
    enumerateElements(generateButton, this);
    _generator.setPressedButton(nullptr);
    return _generator.getChanges();
}

QDomNode SettingsParser::dependenciesNode()
{
    QDomNode node = find(kDependenciesPath);
    if (!node.isNull())
        return node;
    // Under the document's own "root" when there is one, so that the document keeps a single
    // document element and a saved copy stays readable.
    QDomNode root = find(QStringLiteral("root"));
    if (root.isNull())
        return create(kDependenciesPath);
    return root.appendChild(doc.createElement(QStringLiteral("Dependencies")));
}

void SettingsParser::addGatewayRule(QDomNode& dependencies)
{
    QDomElement gateway = dependencies.firstChildElement(FixedIds::Gateway);
    if (gateway.isNull())
        gateway = dependencies.appendChild(doc.createElement(FixedIds::Gateway)).toElement();
    if (!gateway.firstChildElement(QStringLiteral("GatewayValidity")).isNull())
        return;
    QDomElement validity = doc.createElement(QStringLiteral("GatewayValidity"));
    QDomElement condition = doc.createElement(QStringLiteral("Condition"));
    condition.appendChild(doc.createElement(FixedIds::SubnetMask));
    condition.appendChild(doc.createElement(FixedIds::IPAddress));
    validity.appendChild(condition);
    gateway.appendChild(validity);
}

void SettingsParser::mergeDependencyFile(QDomNode& dependencies)
{
    DomParser file;
    QFile device(kDependencyFile);
    if (!device.exists() || !file.open(&device))
        return;
    const QDomNode declared = file.find(kDependenciesPath);
    if (declared.isNull())
        return;
    for (QDomElement child = declared.lastChildElement(); !child.isNull();
         child = child.previousSiblingElement()) {
        const QDomNode imported = doc.importNode(child, true);
        if (imported.isNull() || dependencies.insertBefore(imported, QDomNode()).isNull())
            TAV_LOG(9, "Can't add PaperSize dependency: %s", qPrintable(child.tagName()));
    }
}

bool SettingsParser::readDependencies()
{
    if (!isValid()) {
        TAV_LOG(9, "SettingsParser is invalid");
        return false;
    }
    QDomNode dependencies = dependenciesNode();
    addGatewayRule(dependencies);
    mergeDependencyFile(dependencies);

    clearDependencies();
    _lookupCache.clear();
    for (QDomElement child = dependencies.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        Dependency* dependency = readDependency(child);
        _dependencies.append(dependency);
        attachDependency(dependency);
    }
    return true;
}

Element* SettingsParser::lookupElement(const QString& id)
{
    // Declarations name the same few settings again and again; each is searched for once.
    const auto cached = _lookupCache.constFind(id);
    if (cached != _lookupCache.constEnd())
        return cached.value();
    Element* element = _root ? _root->findElement(id) : nullptr;
    _lookupCache.insert(id, element);
    return element;
}

Dependency* SettingsParser::readDependency(const QDomElement& node)
{
    TAV_TRACE(11, "dependencyTag='%s'", qPrintable(node.tagName()));
    auto* dependency = new Dependency(node.tagName(), lookupElement(node.tagName()));
    for (QDomElement child = node.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        TAV_TRACE(11, ". constraintTag='%s'", qPrintable(child.tagName()));
        dependency->addConstraint(readConstraint(child));
    }
    return dependency;
}

Constraint* SettingsParser::readConstraint(const QDomElement& node)
{
    const bool selfChecked = node.attribute(QStringLiteral("SELFCHECKED"))
                                 .compare(QLatin1String("FALSE"), Qt::CaseInsensitive) != 0;
    const int kind = Constraint::kindFromTag(node.tagName());
    Constraint* constraint = kind == Constraint::ckGatewayValidity
                                 ? new GatewayValidityConstraint(selfChecked)
                                 : new Constraint(kind, selfChecked);
    readSections(constraint, node);
    return constraint;
}

void SettingsParser::readSections(Constraint* constraint, const QDomElement& node)
{
    for (QDomElement section = node.firstChildElement(); !section.isNull();
         section = section.nextSiblingElement()) {
        const QString tag = section.tagName();
        TAV_TRACE(11, ". . elementTag='%s'", qPrintable(tag));
        if (tag == QLatin1String("Condition")) {
            Constraint::ConditionGroup group;
            for (QDomElement c = section.firstChildElement(); !c.isNull();
                 c = c.nextSiblingElement()) {
                TAV_TRACE(11, ". . . conditionTag='%s'", qPrintable(c.tagName()));
                group.append(new ConditionNode(c.tagName(), c.attribute(QStringLiteral("CURRENT")),
                                               c.attribute(QStringLiteral("IS")),
                                               lookupElement(c.tagName())));
            }
            constraint->addConditionGroup(group);
        } else if (tag == QLatin1String("Value")) {
            for (QDomElement v = section.firstChildElement(); !v.isNull();
                 v = v.nextSiblingElement()) {
                TAV_TRACE(11, ". . . subChildTag='%s'", qPrintable(v.tagName()));
                constraint->addValue(v.tagName());
            }
        } else if (tag == QLatin1String("Attributes")) {
            for (QDomElement a = section.firstChildElement(); !a.isNull();
                 a = a.nextSiblingElement()) {
                TAV_TRACE(11, ". . . subChildTag='%s'", qPrintable(a.tagName()));
                if (!a.hasAttribute(QStringLiteral("NAME")) ||
                    !a.hasAttribute(QStringLiteral("VALUE")))
                    continue;
                const QString name = a.attribute(QStringLiteral("NAME"));
                const QString value = a.attribute(QStringLiteral("VALUE"));
                const QString ref = a.attribute(QStringLiteral("REF"));
                Attribute* attribute = nullptr;
                if (a.tagName() == QLatin1String("Attribute"))
                    attribute = new Attribute(a.tagName(), name, value, ref);
                else if (a.tagName() == QLatin1String("RefAttribute"))
                    attribute = new RefAttribute(a.tagName(), name, value, ref);
                else
                    continue;
                if (attribute->isReference() && !attribute->parts().isEmpty())
                    attribute->setReferencedElement(lookupElement(attribute->parts().first()));
                constraint->addAttribute(attribute);
            }
        } else {
            TAV_LOG(9, "Warning: unexpected constraint tag='%s'", qPrintable(tag));
        }
    }
}

void SettingsParser::attachDependency(Dependency* dependency)
{
    Element* governed = dependency->element();
    if (governed) {
        governed->addDependency(dependency);
        _attached.insert(governed);
    }
    const auto testedBy = [&](Element* tested) {
        if (!tested)
            return;
        tested->addTestedInDependency(dependency);
        if (governed)
            tested->addDependentElement(governed);
        _attached.insert(tested);
    };
    for (const Constraint* constraint : dependency->constraints()) {
        for (const Constraint::ConditionGroup& group : constraint->conditions()) {
            for (const ConditionNode* condition : group)
                testedBy(condition->element());
        }
        for (const Attribute* attribute : constraint->attributes())
            testedBy(attribute->referencedElement());
    }
}

void SettingsParser::clearDependencies()
{
    for (Element* element : std::as_const(_attached))
        element->clearDependencies();
    _attached.clear();
    qDeleteAll(_dependencies);
    _dependencies.clear();
}
