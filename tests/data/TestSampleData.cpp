#include "../elements/Rows.h"
#include "app/CapabilityLookup.h"
#include "elements/ComplexElement.h"
#include "elements/ConcreteElement.h"
#include "elements/ListElement.h"
#include "elements/Parameter.h"
#include "elements/TableElement.h"
#include "xml/Attribute.h"
#include "xml/ConditionNode.h"
#include "xml/Constraint.h"
#include "xml/Dependency.h"
#include "xml/ElementType.h"
#include "xml/SettingsParser.h"
#include "xml/Translator.h"

#include <QtTest>

namespace {

const QString kData = QStringLiteral(TAV_DATA_DIR "/");
const QString kShare = QStringLiteral(TAV_SOURCE_DIR "/share/");

std::unique_ptr<SettingsParser> read(const QString& name)
{
    auto parser = std::make_unique<SettingsParser>();
    QFile file(kData + name);
    parser->open(&file);
    parser->readPrinterSettings();
    return parser;
}

// Every element the reader built below `element`, containers and table cells included.
void collect(Element* element, QList<Element*>* all)
{
    all->append(element);
    if (auto* group = qobject_cast<ComplexElement*>(element)) {
        for (Element* child : group->elements())
            collect(child, all);
    } else if (auto* table = qobject_cast<TableElement*>(element)) {
        for (const QList<Element*>& row : table->rows()) {
            for (Element* cell : row) {
                if (cell)
                    collect(cell, all);
            }
        }
    }
}

QStringList parameterIds(const Element* element)
{
    QStringList ids;
    if (const auto* list = qobject_cast<const ListElement*>(element)) {
        for (const Parameter* parameter : list->parameters())
            ids.append(parameter->id());
    }
    return ids;
}

} // namespace

// The shipped samples, dependencies.xml, capability list and translations, read by the
// program's own readers: other tests, the demo and the virtual printer rely on them.
class TestSampleData : public QObject
{
    Q_OBJECT

    std::unique_ptr<SettingsParser> laser = read("laser_mfp.xml");
    std::unique_ptr<SettingsParser> inkjet = read("inkjet_mfp.xml");
    QList<Element*> laserElements, inkjetElements;

private slots:
    void initTestCase()
    {
        QVERIFY(laser->root() && !laser->isIdsRoot());
        QVERIFY(inkjet->root() && inkjet->isIdsRoot());
        collect(laser->root(), &laserElements);
        collect(inkjet->root(), &inkjetElements);
    }

    // Ink kinds are built from the inkjet only; the laser builds every other kind.
    void samplesBuildEveryKind()
    {
        QSet<int> laserKinds, inkjetKinds;
        int settings = 0;
        for (const Element* element : std::as_const(laserElements)) {
            laserKinds.insert(element->type());
            settings += element->isComplex() ? 0 : 1;
        }
        for (const Element* element : std::as_const(inkjetElements))
            inkjetKinds.insert(element->type());
        QVERIFY2(settings >= 150, qPrintable(QString::number(settings)));
        for (int type = etAbout; type <= kLastElementType; ++type) {
            const bool ink = type >= etInkCartridgeAlignMFP && type <= etInkTestPagePrint_XML;
            if (type != etEmpty && type != etInkJetMaintenance)
                QVERIFY2((ink ? inkjetKinds : laserKinds).contains(type),
                         qPrintable(ElementTypes::typeName(type)));
        }
    }

    // The one value the dialog refuses (the demo's start-up report shows it) and no other.
    void oneValueRefusedWhenRead()
    {
        QStringList refused;
        for (Element* element : laserElements + inkjetElements) {
            auto* setting = qobject_cast<ConcreteElement*>(element);
            if (setting && setting->isChanged())
                refused.append(setting->id());
        }
        QCOMPARE(refused, QStringList{"DepartmentName"});
    }

    // Every declaration names settings and choices that exist; the laser's come with
    // dependencies.xml merged in, which governs the margins.
    void dependencyIdsExist_data()
    {
        addRows({"folder"}, {{"laser", TAV_DATA_DIR}, {"inkjet", ""}});
    }
    void dependencyIdsExist()
    {
        QFETCH(QString, folder);
        SettingsParser& parser = folder.isEmpty() ? *inkjet : *laser;
        QTemporaryDir empty;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.isEmpty() ? empty.path() : folder));
        const bool read = parser.readDependencies();
        QDir::setCurrent(before);
        QVERIFY(read && parser.dependencies().size() > 1);
        QVERIFY(folder.isEmpty() || !parser.findElement("TopMargin")->dependencies().isEmpty());
        QStringList unknown; // "id/what" of each name that refers to nothing
        for (const Dependency* dependency : parser.dependencies()) {
            const QString id = dependency->id() + '/';
            if (!dependency->element())
                unknown << id;
            for (const Constraint* constraint : dependency->constraints()) {
                for (const Constraint::ConditionGroup& group : constraint->conditions()) {
                    for (const ConditionNode* node : group) {
                        const QStringList choices = parameterIds(node->element());
                        if (!node->element() ||
                            !(choices.isEmpty() || choices.contains(node->value())))
                            unknown << id + node->tag() + '=' + node->value();
                    }
                }
                for (const QString& value : constraint->values())
                    if (!parameterIds(dependency->element()).contains(value))
                        unknown << id + value;
                for (const Attribute* attribute : constraint->attributes())
                    if (attribute->isReference() && !attribute->referencedElement())
                        unknown << id + attribute->name();
            }
        }
        QCOMPARE(unknown, QStringList());
    }

    // Every key names a setting or a choice of a sample; German covers every setting.
    void translationIdsExist_data() { addRows({"language"}, {{"en", "en"}, {"de", "de"}}); }
    void translationIdsExist()
    {
        QFETCH(QString, language);
        QSet<QString> settings, known;
        for (const Element* element : laserElements + inkjetElements) {
            settings.insert(element->id());
            for (const QString& id : parameterIds(element))
                known.insert(id);
        }
        known += settings;
        const Translator translator(kShare + QString("translation/%1/tav_%1.xml").arg(language));
        QVERIFY2(translator.isValid(), qPrintable(translator.errorText()));
        QSet<QString> keys;
        for (QDomElement m = translator.messages().firstChildElement("message"); !m.isNull();
             m = m.nextSiblingElement("message")) {
            const QString key = DomParser::childText(m, "Id");
            QVERIFY2(!DomParser::childText(m, "Value").isEmpty(), qPrintable(key));
            QVERIFY2(known.contains(key.section(" description", 0, 0)), qPrintable(key));
            keys.insert(key);
        }
        for (const QString& id : settings)
            QVERIFY2(language != "de" || (keys.contains(id) && keys.contains(id + " description")),
                     qPrintable(id));
    }

    void capabilities_data()
    {
        addRows({"devName", "flags"}, // network, buy-now button, IDS
                {{"laser sample", "Tavolor_Laser_MFP_4200", "110"},
                 {"inkjet sample", "Tavolor InkJet MFP 310", "111"},
                 {"everything off", "Tavolor_Mono_Laser_2100", "000"},
                 {"unlisted", "Tavolor_Laser_MFP_9900", "111"}});
    }
    void capabilities()
    {
        QFETCH(QString, devName);
        QFETCH(QString, flags);
        const Capabilities c = lookupCapabilities(kShare + "capabilities.xml", devName);
        QCOMPARE(QString("%1%2%3").arg(int(c.network)).arg(int(c.buyNowButton)).arg(int(c.ids)),
                 flags);
    }
};

QTEST_MAIN(TestSampleData)
#include "TestSampleData.moc"
