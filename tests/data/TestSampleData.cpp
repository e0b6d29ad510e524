#include "DomParser.h"
#include "ElementType.h"
#include "SampleTree.h"

#include <QColor>
#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <memory>

// The sample documents stand in for devices we do not have; other tests and the virtual
// printer rely on them holding every case they claim to hold. These checks keep them honest
// when they are edited.
class TestSampleData : public QObject
{
    Q_OBJECT

private slots:
    void wellFormed_data();
    void wellFormed();
    void inkjetUsesIdsRootOnly();
    void laserHoldsAtLeast150Settings();
    void laserNamesEveryKeyword_data();
    void laserNamesEveryKeyword();
    void everyKindIsBuilt_data();
    void everyKindIsBuilt();
    void readerCases_data();
    void readerCases();
    void groupsWithoutType();
    void networkFormHoldsAddresses_data();
    void networkFormHoldsAddresses();
    void editBoxRules_data();
    void editBoxRules();
    void defaultPatternRejectsOneValue();
    void listValuesNameParameters_data();
    void listValuesNameParameters();
    void numbersWithinLimits_data();
    void numbersWithinLimits();
    void colorMarkers();
    void dateTimeValues_data();
    void dateTimeValues();
    void paperSizesCarryLimits();
    void disabledItemsNameParameters();
    void dependencyIdsExist_data();
    void dependencyIdsExist();
    void paperSizeRulesReferToPaperSize();
    void translationKeysNameIds_data();
    void translationKeysNameIds();
    void germanCoversSample_data();
    void germanCoversSample();
    void capabilityFlags_data();
    void capabilityFlags();
    void capabilityLookup_data();
    void capabilityLookup();
};

namespace {

const QString kLaser = QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml");
const QString kInkjet = QStringLiteral(TAV_DATA_DIR "/inkjet_mfp.xml");
const QString kDependencies = QStringLiteral(TAV_DATA_DIR "/dependencies.xml");
const QString kCapabilities = QStringLiteral(TAV_SOURCE_DIR "/share/capabilities.xml");
const QString kEnglish = QStringLiteral(TAV_SOURCE_DIR "/share/translation/en/tav_en.xml");
const QString kGerman = QStringLiteral(TAV_SOURCE_DIR "/share/translation/de/tav_de.xml");

std::unique_ptr<DomParser> load(const QString& path)
{
    auto parser = std::make_unique<DomParser>();
    QFile file(path);
    parser->open(&file);
    return parser;
}

QDomElement topOf(const DomParser& parser)
{
    QDomNode top = parser.find(QStringLiteral("root/IDSInfo"));
    if (top.isNull())
        top = parser.find(QStringLiteral("root/PrinterSettingsInfo"));
    return top.toElement();
}

QList<QDomElement> childElements(const QDomNode& node)
{
    QList<QDomElement> list;
    for (QDomElement c = node.firstChildElement(); !c.isNull(); c = c.nextSiblingElement())
        list.append(c);
    return list;
}

QList<QDomElement> descendants(const QDomElement& node)
{
    QList<QDomElement> all;
    for (const QDomElement& c : childElements(node)) {
        all.append(c);
        all.append(descendants(c));
    }
    return all;
}

QDomElement firstByTag(const QDomElement& top, const QString& tag)
{
    for (const QDomElement& e : descendants(top)) {
        if (e.tagName() == tag)
            return e;
    }
    return QDomElement();
}

// Translation keys of a file in the order written, with their values.
QList<QPair<QString, QString>> translationMessages(const DomParser& parser)
{
    QList<QPair<QString, QString>> messages;
    for (const QDomElement& m : childElements(parser.find(QStringLiteral("root/Translation")))) {
        if (m.tagName() == QLatin1String("message"))
            messages.append({DomParser::childText(m, QStringLiteral("Id")),
                             DomParser::childText(m, QStringLiteral("Value"))});
    }
    return messages;
}

// How an edit box restricts its characters, in the words of the reader's decision.
QString charsetRule(const QDomElement& edit)
{
    const QList<QDomElement> allowed = [&] {
        QList<QDomElement> list;
        for (QDomElement a = edit.firstChildElement(QStringLiteral("AllowedCharacters"));
             !a.isNull(); a = a.nextSiblingElement(QStringLiteral("AllowedCharacters")))
            list.append(a);
        return list;
    }();
    const bool unAllowed = !edit.firstChildElement(QStringLiteral("UnAllowedCharacters")).isNull();
    if (allowed.size() > 1)
        return QStringLiteral("repeated AllowedCharacters");
    if (allowed.isEmpty())
        return unAllowed ? QStringLiteral("UnAllowedCharacters only") : QStringLiteral("none");
    if (!allowed.first().hasAttribute(QStringLiteral("SymbolSet")))
        return unAllowed ? QStringLiteral("no SymbolSet, UnAllowedCharacters ignored")
                         : QStringLiteral("no SymbolSet");
    const QString set = allowed.first().attribute(QStringLiteral("SymbolSet"));
    if (set == QLatin1String("ASCII") || set == QLatin1String("MultiLanguage"))
        return set + (unAllowed ? QStringLiteral(" with UnAllowedCharacters") : QString());
    if (set == QLatin1String("AllowedCharOnly"))
        return set;
    return QStringLiteral("unknown SymbolSet");
}

bool isNumber(const QString& text)
{
    bool ok = false;
    text.toDouble(&ok);
    return ok;
}

const QStringList kConstraintTags = {"Disable", "Enable", "Constraint", "GatewayValidity", "Hide"};
const QStringList kSections = {"Condition", "Value", "Attributes"};
const QStringList kComparisons = {"EQUAL", "NOT", "GREAT", "GREATOREQUAL", "LESS", "LESSOREQUAL"};
const QStringList kPaperSizeProperties = {"maxtopmargin", "maxleftmargin", "linesportrait",
                                          "lineslandscape"};

} // namespace

void TestSampleData::wellFormed_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("path");
    QTest::newRow("laser settings") << kLaser << "root/PrinterSettingsInfo";
    QTest::newRow("laser dependencies") << kLaser << "root/Dependencies";
    QTest::newRow("inkjet settings") << kInkjet << "root/IDSInfo";
    QTest::newRow("inkjet dependencies") << kInkjet << "root/Dependencies";
    QTest::newRow("dependencies.xml") << kDependencies << "root/Dependencies";
    QTest::newRow("capabilities") << kCapabilities << "root/Devices";
    QTest::newRow("English") << kEnglish << "root/Translation";
    QTest::newRow("German") << kGerman << "root/Translation";
}

void TestSampleData::wellFormed()
{
    QFETCH(QString, file);
    QFETCH(QString, path);
    const auto parser = load(file);
    QVERIFY2(parser->isValid(), qPrintable(file));
    QVERIFY(parser->find(path).isElement());
    QVERIFY(parser->find(path).hasChildNodes());
}

void TestSampleData::inkjetUsesIdsRootOnly()
{
    const auto inkjet = load(kInkjet);
    QVERIFY(inkjet->find(QStringLiteral("root/PrinterSettingsInfo")).isNull());
    const auto laser = load(kLaser);
    QVERIFY(laser->find(QStringLiteral("root/IDSInfo")).isNull());
}

void TestSampleData::laserHoldsAtLeast150Settings()
{
    const auto laser = load(kLaser);
    const SampleTree tree(topOf(*laser));
    QVERIFY2(tree.settings().size() >= 150, qPrintable(QString::number(tree.settings().size())));
}

void TestSampleData::laserNamesEveryKeyword_data()
{
    QTest::addColumn<QString>("keyword");
    for (int type = etAbout; type <= kLastElementType; ++type) {
        if (type != etEmpty)
            QTest::newRow(qPrintable(ElementTypes::keyword(type))) << ElementTypes::keyword(type);
    }
    QTest::newRow("SUBGROUP") << "SUBGROUP";
    QTest::newRow("empty") << "";
}

void TestSampleData::laserNamesEveryKeyword()
{
    QFETCH(QString, keyword);
    const auto laser = load(kLaser);
    bool found = false;
    for (const QDomElement& e : descendants(topOf(*laser))) {
        if (e.hasAttribute(QStringLiteral("TYPE")) &&
            e.attribute(QStringLiteral("TYPE")) == keyword)
            found = true;
    }
    QVERIFY(found);
}

// Ink kinds are built from the inkjet only; the laser names them in an unsupported group.
void TestSampleData::everyKindIsBuilt_data()
{
    QTest::addColumn<int>("type");
    for (int type = etAbout; type <= kLastElementType; ++type) {
        if (type != etEmpty && type != etInkJetMaintenance)
            QTest::newRow(qPrintable(ElementTypes::typeName(type))) << type;
    }
}

void TestSampleData::everyKindIsBuilt()
{
    QFETCH(int, type);
    int count = 0;
    for (const QString& file : {kLaser, kInkjet}) {
        const auto parser = load(file);
        const SampleTree tree(topOf(*parser));
        for (const QList<SampleTree::Setting>* list :
             {&tree.settings(), &tree.containers(), &tree.cells()}) {
            count += int(std::count_if(list->cbegin(), list->cend(),
                                       [type](const auto& s) { return s.type == type; }));
        }
    }
    QVERIFY(count > 0);
}

// A type of -1: the node is in the document but the reader builds nothing from it.
void TestSampleData::readerCases_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("type");
    QTest::newRow("DateTime edit box") << kLaser << "DateTime" << int(etDateTime);
    QTest::newRow("toll save start") << kLaser << "TollSaveStartTime" << int(etDateTime);
    QTest::newRow("toll save end") << kLaser << "TollSaveEndTime" << int(etDateTime);
    QTest::newRow("inkjet DateTime") << kInkjet << "DateTime" << int(etDateTime);
    QTest::newRow("laser SubnetMask") << kLaser << "SubnetMask" << int(etSubnetMask);
    QTest::newRow("inkjet SubnetMask") << kInkjet << "SubnetMask" << int(etSubnetMask);
    QTest::newRow("Gateway stays") << kLaser << "Gateway" << int(etIPAddress);
    QTest::newRow("wireless button") << kInkjet << "WirelessSetting" << int(etWirelessSetup);
    QTest::newRow("SUPPORTED=false") << kLaser << "SkipBlankPages" << int(etCheckbox);
    QTest::newRow("SUPPORTED=FALSE") << kLaser << "StapleMode" << -1;
    QTest::newRow("inkjet SUPPORTED=FALSE") << kInkjet << "BuyInkOnline" << -1;
    QTest::newRow("WIFIDirectSetting") << kLaser << "WIFIDirectSetting" << -1;
    QTest::newRow("inkjet WIFIDirectSetting") << kInkjet << "WIFIDirectSetting" << -1;
    QTest::newRow("RestoreNetwork") << kLaser << "RestoreNetwork" << -1;
    QTest::newRow("MAINTENANCE") << kLaser << "DrumCleaning" << -1;
    QTest::newRow("inkjet MAINTENANCE") << kInkjet << "PrintheadService" << -1;
    QTest::newRow("unknown TYPE") << kLaser << "DensityCalibration" << -1;
    QTest::newRow("ABOUT renamed") << kLaser << "PrinterInformation" << -1;
    QTest::newRow("about element") << kLaser << "AboutElement" << int(etAbout);
    QTest::newRow("inkjet about element") << kInkjet << "AboutElement" << int(etAbout);
}

void TestSampleData::readerCases()
{
    QFETCH(QString, file);
    QFETCH(QString, tag);
    QFETCH(int, type);
    const auto parser = load(file);
    const QDomElement top = topOf(*parser);
    const SampleTree tree(top);
    const SampleTree::Setting* built = tree.find(tag);
    if (type < 0) {
        QVERIFY(!firstByTag(top, tag).isNull());
        QVERIFY(!built);
    } else {
        QVERIFY(built);
        QCOMPARE(ElementTypes::typeName(built->type), ElementTypes::typeName(type));
    }
}

void TestSampleData::groupsWithoutType()
{
    const auto laser = load(kLaser);
    const SampleTree tree(topOf(*laser));
    bool missing = false;
    bool empty = false;
    for (const SampleTree::Setting& group : tree.containers()) {
        QVERIFY2(!group.node.firstChildElement().isNull(), qPrintable(group.id));
        if (!group.node.hasAttribute(QStringLiteral("TYPE")) && group.id != "PrinterSettingsInfo")
            missing = true;
        if (group.node.hasAttribute(QStringLiteral("TYPE")) &&
            group.node.attribute(QStringLiteral("TYPE")).isEmpty())
            empty = true;
    }
    QVERIFY(missing);
    QVERIFY(empty);
}

void TestSampleData::networkFormHoldsAddresses_data()
{
    QTest::addColumn<QString>("tag");
    QTest::newRow("IPAddress") << FixedIds::IPAddress;
    QTest::newRow("SubnetMask") << FixedIds::SubnetMask;
    QTest::newRow("Gateway") << FixedIds::Gateway;
}

void TestSampleData::networkFormHoldsAddresses()
{
    QFETCH(QString, tag);
    const auto laser = load(kLaser);
    const QDomElement node = firstByTag(topOf(*laser), tag);
    QCOMPARE(node.attribute(QStringLiteral("TYPE")), QStringLiteral("IPADDRESS"));
    const QDomElement form = node.parentNode().toElement();
    QCOMPARE(form.attribute(QStringLiteral("TYPE")), QStringLiteral("POPUP"));
    QCOMPARE(form.attribute(QStringLiteral("DEFAULT")), QStringLiteral("TRUE"));
}

void TestSampleData::editBoxRules_data()
{
    QTest::addColumn<QString>("rule");
    for (const char* rule :
         {"none", "ASCII with UnAllowedCharacters", "MultiLanguage",
          "MultiLanguage with UnAllowedCharacters", "AllowedCharOnly", "no SymbolSet",
          "no SymbolSet, UnAllowedCharacters ignored", "unknown SymbolSet",
          "repeated AllowedCharacters", "UnAllowedCharacters only"})
        QTest::newRow(rule) << QString::fromLatin1(rule);
}

void TestSampleData::editBoxRules()
{
    QFETCH(QString, rule);
    const auto laser = load(kLaser);
    const SampleTree tree(topOf(*laser));
    QStringList holders;
    for (const SampleTree::Setting& s : tree.settings()) {
        if (s.type == etEdit && charsetRule(s.node) == rule)
            holders.append(s.id);
    }
    QVERIFY(!holders.isEmpty());
}

// Exactly one value that the device sends is one its own edit box refuses.
void TestSampleData::defaultPatternRejectsOneValue()
{
    const QRegularExpression defaultPattern(
        QRegularExpression::anchoredPattern(QStringLiteral("[@*+-.,#/&'\\sA-Za-z0-9]*")));
    QStringList rejected;
    for (const QString& file : {kLaser, kInkjet}) {
        const auto parser = load(file);
        const SampleTree tree(topOf(*parser));
        for (const SampleTree::Setting& s : tree.settings()) {
            const QString rule = charsetRule(s.node);
            if (s.type == etEdit && (rule == "none" || rule == "unknown SymbolSet") &&
                !defaultPattern.match(s.node.attribute(QStringLiteral("CURRENT"))).hasMatch())
                rejected.append(s.id);
        }
    }
    QCOMPARE(rejected, QStringList{QStringLiteral("DepartmentName")});
}

void TestSampleData::listValuesNameParameters_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("laser") << kLaser;
    QTest::newRow("inkjet") << kInkjet;
}

void TestSampleData::listValuesNameParameters()
{
    QFETCH(QString, file);
    const auto parser = load(file);
    const SampleTree tree(topOf(*parser));
    for (const QList<SampleTree::Setting>* list : {&tree.settings(), &tree.cells()}) {
        for (const SampleTree::Setting& s : *list) {
            if (!SampleTree::isList(s.type))
                continue;
            QStringList ids;
            for (const QDomElement& p : SampleTree::parameterNodes(s.node))
                ids.append(p.tagName());
            QVERIFY2(ids.size() >= 2, qPrintable(s.id));
            if (s.type == etCheckbox)
                QCOMPARE(ids.size(), 2);
            for (const char* attribute : {"CURRENT", "FACTORY"})
                QVERIFY2(ids.contains(s.node.attribute(QLatin1String(attribute))),
                         qPrintable(s.id + QLatin1Char(' ') + QLatin1String(attribute)));
        }
    }
}

void TestSampleData::numbersWithinLimits_data()
{
    listValuesNameParameters_data();
}

void TestSampleData::numbersWithinLimits()
{
    QFETCH(QString, file);
    const auto parser = load(file);
    const SampleTree tree(topOf(*parser));
    for (const QList<SampleTree::Setting>* list : {&tree.settings(), &tree.cells()}) {
        for (const SampleTree::Setting& s : *list) {
            if (s.type != etInteger && s.type != etFloat && s.type != etSlider)
                continue;
            const QString min = s.node.attribute(QStringLiteral("MIN"), QStringLiteral("0"));
            const QString max = s.node.attribute(QStringLiteral("MAX"));
            QVERIFY2(isNumber(min) && (max.isEmpty() || isNumber(max)), qPrintable(s.id));
            for (const char* attribute : {"CURRENT", "FACTORY"}) {
                const QString value = s.node.attribute(QLatin1String(attribute));
                const QString what = s.id + QLatin1Char(' ') + QLatin1String(attribute);
                QVERIFY2(isNumber(value), qPrintable(what));
                QVERIFY2(value.toDouble() >= min.toDouble(), qPrintable(what));
                QVERIFY2(max.isEmpty() || value.toDouble() <= max.toDouble(), qPrintable(what));
                if (s.type == etFloat) {
                    const int decimals =
                        value.contains('.') ? int(value.section('.', 1).size()) : 0;
                    QVERIFY2(decimals <= s.node.attribute(QStringLiteral("DIGITS")).toInt(),
                             qPrintable(what));
                }
            }
        }
    }
}

// "position:colour" items separated by ";", positions within the slider's range.
void TestSampleData::colorMarkers()
{
    int sliders = 0;
    for (const QString& file : {kLaser, kInkjet}) {
        const auto parser = load(file);
        const SampleTree tree(topOf(*parser));
        for (const SampleTree::Setting& s : tree.settings()) {
            const QString markers = s.node.attribute(QStringLiteral("COLORMARKER"));
            if (s.type != etSlider || markers.isEmpty())
                continue;
            ++sliders;
            const int min = s.node.attribute(QStringLiteral("MIN")).toInt();
            const int max = s.node.attribute(QStringLiteral("MAX")).toInt();
            for (const QString& item : markers.split(QLatin1Char(';'))) {
                const QStringList parts = item.split(QLatin1Char(':'));
                QCOMPARE(parts.size(), 2);
                bool ok = false;
                const int position = parts.at(0).toInt(&ok);
                QVERIFY2(ok && position >= min && position <= max, qPrintable(s.id));
                QVERIFY2(QColor::isValidColorName(parts.at(1)), qPrintable(s.id));
            }
        }
    }
    QCOMPARE(sliders, 2);
}

void TestSampleData::dateTimeValues_data()
{
    listValuesNameParameters_data();
}

void TestSampleData::dateTimeValues()
{
    QFETCH(QString, file);
    const auto parser = load(file);
    const SampleTree tree(topOf(*parser));
    int count = 0;
    for (const SampleTree::Setting& s : tree.settings()) {
        if (s.type != etDateTime)
            continue;
        ++count;
        for (const char* attribute : {"CURRENT", "FACTORY"}) {
            if (!s.node.hasAttribute(QLatin1String(attribute)))
                continue;
            const QString value = s.node.attribute(QLatin1String(attribute));
            QVERIFY2(QDateTime::fromString(value, QStringLiteral("yyyy-MM-dd hh:mm")).isValid(),
                     qPrintable(s.id + QLatin1Char(' ') + value));
        }
    }
    QVERIFY(count > 0);
}

void TestSampleData::paperSizesCarryLimits()
{
    const auto laser = load(kLaser);
    const SampleTree tree(topOf(*laser));
    QStringList withoutTopMargin;
    for (const QList<SampleTree::Setting>* list : {&tree.settings(), &tree.cells()}) {
        for (const SampleTree::Setting& s : *list) {
            if (s.type != etPaperSize)
                continue;
            for (const QDomElement& p : SampleTree::parameterNodes(s.node)) {
                for (const char* a : {"LINESPORTRAIT", "LINESLANDSCAPE", "MAXLEFTMARGIN"})
                    QVERIFY2(p.attribute(QLatin1String(a)).toInt() > 0, qPrintable(p.tagName()));
                if (!p.hasAttribute(QStringLiteral("MAXTOPMARGIN")) && s.id == "PaperSize")
                    withoutTopMargin.append(p.tagName());
            }
        }
    }
    QCOMPARE(withoutTopMargin.size(), 1);
    const SampleTree::Setting* topMargin = tree.find(QStringLiteral("TopMargin"));
    QVERIFY(topMargin);
    QCOMPARE(topMargin->type, int(etInteger));
}

void TestSampleData::disabledItemsNameParameters()
{
    const auto laser = load(kLaser);
    const SampleTree tree(topOf(*laser));
    QList<int> namesPerList;
    for (const SampleTree::Setting& s : tree.settings()) {
        const QString disabled = s.node.attribute(QStringLiteral("DisabledItem"));
        if (disabled.isEmpty())
            continue;
        const QStringList names = disabled.split(QLatin1Char(';'));
        for (const QString& name : names)
            QVERIFY2(!s.node.firstChildElement(name).isNull(), qPrintable(s.id + ": " + name));
        namesPerList.append(int(names.size()));
    }
    QVERIFY(namesPerList.contains(1));
    QVERIFY(namesPerList.contains(2));
}

void TestSampleData::dependencyIdsExist_data()
{
    QTest::addColumn<QString>("rules");
    QTest::addColumn<QString>("settings");
    QTest::newRow("laser's own") << kLaser << kLaser;
    QTest::newRow("inkjet's own") << kInkjet << kInkjet;
    QTest::newRow("dependencies.xml on the laser") << kDependencies << kLaser;
}

// Rules name settings that exist; conditions on lists and value lists name their parameters.
void TestSampleData::dependencyIdsExist()
{
    QFETCH(QString, rules);
    QFETCH(QString, settings);
    const auto ruleDoc = load(rules);
    const auto settingDoc = load(settings);
    const SampleTree tree(topOf(*settingDoc));
    const QSet<QString> ids = tree.ids();
    auto parametersOf = [&tree](const QString& id) {
        QStringList names;
        if (const SampleTree::Setting* s = tree.find(id); s && SampleTree::isList(s->type)) {
            for (const QDomElement& p : SampleTree::parameterNodes(s->node))
                names.append(p.tagName());
        }
        return names;
    };
    for (const QDomElement& dependency :
         childElements(ruleDoc->find(QStringLiteral("root/Dependencies")))) {
        const QString governed = dependency.tagName();
        QVERIFY2(ids.contains(governed), qPrintable(governed));
        for (const QDomElement& constraint : childElements(dependency)) {
            QVERIFY2(kConstraintTags.contains(constraint.tagName()), qPrintable(governed));
            for (const QDomElement& section : childElements(constraint)) {
                QVERIFY2(kSections.contains(section.tagName()), qPrintable(governed));
                for (const QDomElement& item : childElements(section)) {
                    const QString what = governed + QLatin1Char('/') + item.tagName();
                    if (section.tagName() == QLatin1String("Condition")) {
                        QVERIFY2(ids.contains(item.tagName()), qPrintable(what));
                        const QString is = item.attribute(QStringLiteral("IS"), "EQUAL");
                        QVERIFY2(kComparisons.contains(is), qPrintable(what));
                        const QStringList choices = parametersOf(item.tagName());
                        if (!choices.isEmpty())
                            QVERIFY2(choices.contains(item.attribute("CURRENT")), qPrintable(what));
                    } else if (section.tagName() == QLatin1String("Value")) {
                        QVERIFY2(parametersOf(governed).contains(item.tagName()), qPrintable(what));
                    } else {
                        QVERIFY2(item.hasAttribute("NAME") && item.hasAttribute("VALUE"),
                                 qPrintable(what));
                    }
                }
            }
        }
    }
}

void TestSampleData::paperSizeRulesReferToPaperSize()
{
    const auto rules = load(kDependencies);
    const auto laser = load(kLaser);
    const SampleTree tree(topOf(*laser));
    QStringList governed;
    bool restrictsList = false;
    for (const QDomElement& e :
         descendants(rules->find(QStringLiteral("root/Dependencies")).toElement())) {
        if (e.tagName() == QLatin1String("Constraint") &&
            !e.firstChildElement(QStringLiteral("Condition")).isNull() &&
            !e.firstChildElement(QStringLiteral("Value")).isNull())
            restrictsList = true;
        if (e.tagName() != QLatin1String("RefAttribute"))
            continue;
        QCOMPARE(e.attribute(QStringLiteral("REF")), QStringLiteral("TRUE"));
        QCOMPARE(e.attribute(QStringLiteral("NAME")), QStringLiteral("max"));
        const QStringList reference = e.attribute(QStringLiteral("VALUE")).split(QLatin1Char('#'));
        QCOMPARE(reference.size(), 2);
        const SampleTree::Setting* source = tree.find(reference.at(0));
        QVERIFY(source);
        QCOMPARE(source->type, int(etPaperSize));
        QVERIFY(kPaperSizeProperties.contains(reference.at(1)));
        governed.append(e.parentNode().parentNode().parentNode().toElement().tagName());
    }
    for (const char* id : {"TopMargin", "LeftMargin", "LinesPerPage"})
        QVERIFY2(governed.contains(QLatin1String(id)), id);
    QVERIFY(restrictsList);
}

void TestSampleData::translationKeysNameIds_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("en") << kEnglish;
    QTest::newRow("de") << kGerman;
}

void TestSampleData::translationKeysNameIds()
{
    QFETCH(QString, file);
    QSet<QString> known;
    for (const QString& sample : {kLaser, kInkjet}) {
        const auto parser = load(sample);
        const SampleTree tree(topOf(*parser));
        known += tree.ids();
        known += tree.parameters();
    }
    const auto translation = load(file);
    QSet<QString> seen;
    const QString suffix = QStringLiteral(" description");
    for (const auto& [key, value] : translationMessages(*translation)) {
        QVERIFY2(!value.isEmpty(), qPrintable(key));
        QVERIFY2(!seen.contains(key), qPrintable(key));
        seen.insert(key);
        const QString id = key.endsWith(suffix) ? key.chopped(suffix.size()) : key;
        QVERIFY2(known.contains(id), qPrintable(key));
    }
}

void TestSampleData::germanCoversSample_data()
{
    listValuesNameParameters_data();
}

void TestSampleData::germanCoversSample()
{
    QFETCH(QString, file);
    const auto german = load(kGerman);
    QSet<QString> keys;
    for (const auto& message : translationMessages(*german))
        keys.insert(message.first);
    const auto parser = load(file);
    const SampleTree tree(topOf(*parser));
    for (const QString& id : tree.ids()) {
        QVERIFY2(keys.contains(id), qPrintable(id));
        QVERIFY2(keys.contains(id + QStringLiteral(" description")), qPrintable(id));
    }
    for (const QString& id : tree.parameters())
        QVERIFY2(keys.contains(id), qPrintable(id));
}

void TestSampleData::capabilityFlags_data()
{
    QTest::addColumn<QString>("flag");
    QTest::newRow("NETWORK") << "NETWORK";
    QTest::newRow("BUYNOWBUTTON") << "BUYNOWBUTTON";
    QTest::newRow("IDS") << "IDS";
}

// Each flag is turned off somewhere, and the sample devices are listed under their names.
void TestSampleData::capabilityFlags()
{
    QFETCH(QString, flag);
    const auto list = load(kCapabilities);
    QStringList names;
    int off = 0;
    for (const QDomElement& model : childElements(list->find(QStringLiteral("root/Devices")))) {
        names.append(model.attribute(QStringLiteral("NAME")).toLower().replace(' ', '_'));
        if (model.attribute(flag).toLower() == QLatin1String("false"))
            ++off;
    }
    QVERIFY(off > 0);
    QCOMPARE(QSet<QString>(names.cbegin(), names.cend()).size(), names.size());
    for (const char* sample : {"tavolor_laser_mfp_4200", "tavolor_inkjet_mfp_310"})
        QVERIFY2(names.contains(QLatin1String(sample)), sample);
}

void TestSampleData::capabilityLookup_data()
{
    QTest::addColumn<QString>("deviceName");
    QTest::addColumn<int>("matches");
    QTest::newRow("laser sample") << "Tavolor_Laser_MFP_4200" << 1;
    QTest::newRow("inkjet sample") << "Tavolor InkJet MFP 310" << 1;
    QTest::newRow("short name") << "TAVOLOR_MONO_LASER" << 2;
    QTest::newRow("unlisted") << "Tavolor_Laser_MFP_9900" << 0;
}

// Model keys are compared with blanks and underscores as one character, by substring.
void TestSampleData::capabilityLookup()
{
    QFETCH(QString, deviceName);
    QFETCH(int, matches);
    const QString key = deviceName.toLower().replace('_', ' ');
    const auto list = load(kCapabilities);
    int found = 0;
    for (const QDomElement& model : childElements(list->find(QStringLiteral("root/Devices")))) {
        if (model.attribute(QStringLiteral("NAME")).toLower().contains(key))
            ++found;
    }
    QCOMPARE(found, matches);
}

QTEST_GUILESS_MAIN(TestSampleData)
#include "TestSampleData.moc"
