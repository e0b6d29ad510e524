#include "Attribute.h"
#include "CapabilityLookup.h"
#include "CapabilityParser.h"
#include "ComplexElement.h"
#include "ConcreteElement.h"
#include "ConditionNode.h"
#include "Constraint.h"
#include "Dependency.h"
#include "ElementType.h"
#include "ListElement.h"
#include "Parameter.h"
#include "SettingsParser.h"
#include "TableElement.h"
#include "Translator.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const QString kData = QStringLiteral(TAV_DATA_DIR "/");
const QString kShare = QStringLiteral(TAV_SOURCE_DIR "/share/");

std::unique_ptr<SettingsParser> read(const QString& path)
{
    auto parser = std::make_unique<SettingsParser>();
    QFile file(path);
    parser->open(&file);
    parser->readPrinterSettings();
    return parser;
}

// Every element the reader built, containers and table cells included.
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

QList<Element*> elementsOf(const SettingsParser& parser)
{
    QList<Element*> all;
    if (parser.root())
        collect(parser.root(), &all);
    return all;
}

bool hasParameter(const Element* element, const QString& id)
{
    const auto* list = qobject_cast<const ListElement*>(element);
    if (!list)
        return false;
    for (const Parameter* parameter : list->parameters()) {
        if (parameter->id() == id)
            return true;
    }
    return false;
}

} // namespace

// The shipped samples, capability list and translations, read by the program's own readers:
// other tests, the demo and the virtual printer rely on them.
class TestSampleData : public QObject
{
    Q_OBJECT

private slots:
    void everyFileParses_data()
    {
        QTest::addColumn<QString>("path");
        for (const char* name : {"laser_mfp.xml", "inkjet_mfp.xml", "dependencies.xml"})
            QTest::newRow(name) << kData + name;
        for (const char* name :
             {"capabilities.xml", "translation/en/tav_en.xml", "translation/de/tav_de.xml"})
            QTest::newRow(name) << kShare + name;
    }
    void everyFileParses()
    {
        QFETCH(QString, path);
        QFile file(path);
        if (path.contains("/translation/")) {
            const Translator translator(path);
            QVERIFY2(translator.isValid(), qPrintable(translator.errorText()));
            QVERIFY(translator.messages().hasChildNodes());
        } else if (path.endsWith("capabilities.xml")) {
            CapabilityParser parser;
            QVERIFY(parser.open(&file));
            QVERIFY(parser.parse().size() > 2);
        } else if (path.endsWith("dependencies.xml")) {
            DomParser parser;
            QVERIFY(parser.open(&file));
            QVERIFY(parser.find("root/Dependencies").hasChildNodes());
        } else {
            SettingsParser parser;
            QVERIFY(parser.open(&file));
            QVERIFY(parser.readPrinterSettings());
            QCOMPARE(parser.isIdsRoot(), path.contains("inkjet"));
        }
    }

    // Ink kinds are built from the inkjet only; the laser builds every other kind.
    void samplesBuildEveryKind()
    {
        const auto laser = read(kData + "laser_mfp.xml");
        const auto inkjet = read(kData + "inkjet_mfp.xml");
        QSet<int> laserKinds, inkjetKinds;
        int settings = 0;
        for (const Element* element : elementsOf(*laser)) {
            laserKinds.insert(element->type());
            settings += element->isComplex() ? 0 : 1;
        }
        for (const Element* element : elementsOf(*inkjet))
            inkjetKinds.insert(element->type());
        QVERIFY2(settings >= 150, qPrintable(QString::number(settings)));
        for (int type = etAbout; type <= kLastElementType; ++type) {
            const bool ink = type >= etInkCartridgeAlignMFP && type <= etInkTestPagePrint_XML;
            if (type != etEmpty && type != etInkJetMaintenance)
                QVERIFY2((ink ? inkjetKinds : laserKinds).contains(type),
                         qPrintable(ElementTypes::typeName(type)));
        }
    }

    // The one value the dialog refuses (README: the start-up report shows it) and no other:
    // every other value is within its setting's rules as read.
    void oneValueRefusedWhenRead()
    {
        QStringList refused;
        for (const char* name : {"laser_mfp.xml", "inkjet_mfp.xml"}) {
            const auto parser = read(kData + name);
            for (Element* element : elementsOf(*parser)) {
                auto* setting = qobject_cast<ConcreteElement*>(element);
                if (setting && setting->isChanged())
                    refused.append(setting->id());
            }
        }
        QCOMPARE(refused, QStringList{"DepartmentName"});
    }

    void dependencyIdsExist_data()
    {
        QTest::addColumn<QString>("sample");
        QTest::addColumn<bool>("withFile"); // dependencies.xml merged in
        QTest::newRow("laser with dependencies.xml") << "laser_mfp.xml" << true;
        QTest::newRow("inkjet") << "inkjet_mfp.xml" << false;
    }
    void dependencyIdsExist()
    {
        QFETCH(QString, sample);
        QFETCH(bool, withFile);
        QTemporaryDir empty;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(withFile ? kData : empty.path()));
        const auto parser = read(kData + sample);
        const bool read = parser->readDependencies();
        QDir::setCurrent(before);
        QVERIFY(read);
        QVERIFY(parser->dependencies().size() > 1);
        for (const Dependency* dependency : parser->dependencies()) {
            const QString id = dependency->id();
            QVERIFY2(dependency->element(), qPrintable(id));
            for (const Constraint* constraint : dependency->constraints()) {
                for (const Constraint::ConditionGroup& group : constraint->conditions()) {
                    for (const ConditionNode* node : group) {
                        const QString what = id + '/' + node->tag();
                        QVERIFY2(node->element(), qPrintable(what));
                        if (qobject_cast<ListElement*>(node->element()))
                            QVERIFY2(hasParameter(node->element(), node->value()),
                                     qPrintable(what));
                    }
                }
                for (const QString& value : constraint->values())
                    QVERIFY2(hasParameter(dependency->element(), value), qPrintable(id + value));
                for (const Attribute* attribute : constraint->attributes())
                    QVERIFY2(!attribute->isReference() || attribute->referencedElement(),
                             qPrintable(id + '/' + attribute->name()));
            }
        }
    }

    void translationIdsExist_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("en") << "en";
        QTest::newRow("de") << "de";
    }
    // Every key names a setting or a choice of a sample; German covers every setting.
    void translationIdsExist()
    {
        QFETCH(QString, language);
        QSet<QString> settings, known;
        for (const char* name : {"laser_mfp.xml", "inkjet_mfp.xml"}) {
            const auto parser = read(kData + name);
            for (const Element* element : elementsOf(*parser)) {
                settings.insert(element->id());
                if (const auto* list = qobject_cast<const ListElement*>(element)) {
                    for (const Parameter* parameter : list->parameters())
                        known.insert(parameter->id());
                }
            }
        }
        known += settings;
        const Translator translator(kShare + QString("translation/%1/tav_%1.xml").arg(language));
        QSet<QString> keys;
        for (QDomElement m = translator.messages().firstChildElement("message"); !m.isNull();
             m = m.nextSiblingElement("message")) {
            const QString key = DomParser::childText(m, "Id");
            QVERIFY2(!DomParser::childText(m, "Value").isEmpty(), qPrintable(key));
            QVERIFY2(known.contains(key.section(" description", 0, 0)), qPrintable(key));
            keys.insert(key);
        }
        for (const QString& id : settings) {
            if (language == "de")
                QVERIFY2(keys.contains(id) && keys.contains(id + " description"), qPrintable(id));
        }
    }

    void capabilities_data()
    {
        QTest::addColumn<QString>("devName");
        QTest::addColumn<QString>("flags"); // network, buy-now button, IDS
        QTest::newRow("laser sample") << "Tavolor_Laser_MFP_4200"
                                      << "110";
        QTest::newRow("inkjet sample") << "Tavolor InkJet MFP 310"
                                       << "111";
        QTest::newRow("everything off") << "Tavolor_Mono_Laser_2100"
                                        << "000";
        QTest::newRow("unlisted") << "Tavolor_Laser_MFP_9900"
                                  << "111";
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
