#include "../app/StderrCapture.h"
#include "SpecText.h"

#include "Attribute.h"
#include "ConcreteElement.h"
#include "ConditionNode.h"
#include "Constraint.h"
#include "Dependency.h"
#include "GatewayValidityConstraint.h"
#include "RefAttribute.h"
#include "SettingsParser.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

// Dependency declarations: the records read, the built-in gateway rule, the merge with
// "dependencies.xml", and their attachment to the elements.
class TestDependencies : public QObject
{
    Q_OBJECT

private:
    // Reads settings and declarations with "dependencies.xml" (when given) in the current
    // directory.
    static std::unique_ptr<SettingsParser> read(const QString& settings,
                                                const QString& declarations,
                                                const QByteArray& file = QByteArray());
    static QStringList ids(const SettingsParser& parser);

    QTemporaryDir dir;

private slots:
    void init();
    void cleanup();
    void builtInGateway();
    void declaredGatewayKept();
    void gatewayWithoutValidityCompleted();
    void mergeOrder();
    void brokenFileIgnored_data();
    void brokenFileIgnored();
    void selfChecked_data();
    void selfChecked();
    void kinds_data();
    void kinds();
    void comparisons_data();
    void comparisons();
    void sectionsRead();
    void elementAccess();
    void gatewayRule_data();
    void gatewayRule();
    void gatewayCheckedThroughElements();
    void rereadReplacesRecords();
};

std::unique_ptr<SettingsParser>
TestDependencies::read(const QString& settings, const QString& declarations, const QByteArray& file)
{
    QFile::remove("dependencies.xml");
    if (!file.isNull()) {
        QFile out("dependencies.xml");
        out.open(QIODevice::WriteOnly);
        out.write(file);
    }
    auto parser = SpecText::read(settings, "PrinterSettingsInfo", declarations);
    parser->readDependencies();
    return parser;
}

QStringList TestDependencies::ids(const SettingsParser& parser)
{
    QStringList out;
    for (const Dependency* dependency : parser.dependencies())
        out.append(dependency->id());
    return out;
}

void TestDependencies::init()
{
    QVERIFY(dir.isValid());
    QVERIFY(QDir::setCurrent(dir.path()));
}

void TestDependencies::cleanup()
{
    QFile::remove("dependencies.xml");
}

const char* const kNetwork = "<Net><IPAddress TYPE=\"IPADDRESS\" CURRENT=\"192.168.1.10\"/>"
                             "<SubnetMask TYPE=\"IPADDRESS\" CURRENT=\"255.255.255.0\"/>"
                             "<Gateway TYPE=\"IPADDRESS\" CURRENT=\"192.168.1.1\"/></Net>";

void TestDependencies::builtInGateway()
{
    const auto parser = read(kNetwork, QString());
    QCOMPARE(ids(*parser), QStringList({"Gateway"}));
    const Dependency* gateway = parser->dependencies().first();
    QCOMPARE(gateway->element(), parser->findElement("Gateway"));
    QCOMPARE(gateway->constraints().size(), 1);
    const Constraint* rule = gateway->constraints().first();
    QCOMPARE(rule->kind(), int(Constraint::ckGatewayValidity));
    QVERIFY(dynamic_cast<const GatewayValidityConstraint*>(rule));
    QVERIFY(rule->isSelfChecked());
    QCOMPARE(rule->conditions().size(), 1);
    const Constraint::ConditionGroup& group = rule->conditions().first();
    QCOMPARE(group.size(), 2);
    QCOMPARE(group.at(0)->tag(), QString("SubnetMask"));
    QCOMPARE(group.at(1)->tag(), QString("IPAddress"));
    QCOMPARE(group.at(0)->element(), parser->findElement("SubnetMask"));
    QCOMPARE(group.at(1)->comparison(), int(ConditionNode::cmpEqual));
    QVERIFY(group.at(1)->value().isEmpty());
    // Written into the document too.
    QVERIFY(
        !parser->find("root/Dependencies/Gateway/GatewayValidity/Condition/IPAddress").isNull());
}

void TestDependencies::declaredGatewayKept()
{
    const auto parser =
        read(kNetwork, "<Dependencies><Gateway><GatewayValidity SELFCHECKED=\"FALSE\"><Condition>"
                       "<IPAddress/></Condition></GatewayValidity></Gateway></Dependencies>");
    QCOMPARE(ids(*parser), QStringList({"Gateway"}));
    const Constraint* rule = parser->dependencies().first()->constraints().first();
    QVERIFY(!rule->isSelfChecked());
    QCOMPARE(rule->conditions().first().size(), 1);
}

void TestDependencies::gatewayWithoutValidityCompleted()
{
    const auto parser =
        read(kNetwork, "<Dependencies><Gateway><Hide><Condition><IPAddress "
                       "CURRENT=\"\"/></Condition></Hide></Gateway></Dependencies>");
    const Dependency* gateway = parser->dependencies().first();
    QCOMPARE(gateway->constraints().size(), 2);
    QCOMPARE(gateway->constraints().at(0)->kind(), int(Constraint::ckHide));
    QCOMPARE(gateway->constraints().at(1)->kind(), int(Constraint::ckGatewayValidity));
}

void TestDependencies::mergeOrder()
{
    const QByteArray file = "<root><Dependencies><PaperSize><Constraint/></PaperSize>"
                            "<Tray><Disable/></Tray></Dependencies></root>";
    const auto parser =
        read(kNetwork, "<Dependencies><Copies><Enable/></Copies></Dependencies>", file);
    QCOMPARE(ids(*parser), QStringList({"PaperSize", "Tray", "Copies", "Gateway"}));
    QCOMPARE(parser->dependencies().at(1)->constraints().first()->kind(),
             int(Constraint::ckDisable));
    // Ids that name no setting keep their records, without an element.
    QVERIFY(!parser->dependencies().first()->element());
}

void TestDependencies::brokenFileIgnored_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("not XML") << QByteArray("<root><Dependencies><A>");
    QTest::newRow("no Dependencies") << QByteArray("<root><Other><A/></Other></root>");
    QTest::newRow("empty") << QByteArray("");
}

void TestDependencies::brokenFileIgnored()
{
    QFETCH(QByteArray, file);
    const auto parser = read(kNetwork, QString(), file);
    QCOMPARE(ids(*parser), QStringList({"Gateway"}));
}

void TestDependencies::selfChecked_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<bool>("selfChecked");
    QTest::newRow("missing") << QString() << true;
    QTest::newRow("FALSE") << " SELFCHECKED=\"FALSE\"" << false;
    QTest::newRow("false") << " SELFCHECKED=\"false\"" << false;
    QTest::newRow("FaLsE") << " SELFCHECKED=\"FaLsE\"" << false;
    QTest::newRow("TRUE") << " SELFCHECKED=\"TRUE\"" << true;
    QTest::newRow("no") << " SELFCHECKED=\"no\"" << true;
    QTest::newRow("0") << " SELFCHECKED=\"0\"" << true;
}

void TestDependencies::selfChecked()
{
    QFETCH(QString, attribute);
    QFETCH(bool, selfChecked);
    const auto parser = read(
        kNetwork,
        QStringLiteral("<Dependencies><Gateway><Hide%1/></Gateway></Dependencies>").arg(attribute));
    QCOMPARE(parser->dependencies().first()->constraints().first()->isSelfChecked(), selfChecked);
}

void TestDependencies::kinds_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("kind");
    QTest::newRow("Disable") << "Disable" << 1;
    QTest::newRow("Enable") << "Enable" << 2;
    QTest::newRow("Constraint") << "Constraint" << 3;
    QTest::newRow("GatewayValidity") << "GatewayValidity" << 4;
    QTest::newRow("Hide") << "Hide" << 5;
    QTest::newRow("hide") << "hide" << 0;
    QTest::newRow("Show") << "Show" << 0;
}

void TestDependencies::kinds()
{
    QFETCH(QString, tag);
    QFETCH(int, kind);
    QCOMPARE(Constraint::kindFromTag(tag), kind);
    const auto parser =
        read(kNetwork,
             QStringLiteral("<Dependencies><IPAddress><%1/></IPAddress></Dependencies>").arg(tag));
    const Constraint* constraint = parser->dependencies().first()->constraints().first();
    QCOMPARE(constraint->kind(), kind);
    QCOMPARE(dynamic_cast<const GatewayValidityConstraint*>(constraint) != nullptr, kind == 4);
}

void TestDependencies::comparisons_data()
{
    QTest::addColumn<QString>("is");
    QTest::addColumn<int>("code");
    QTest::newRow("missing") << QString() << 1;
    QTest::newRow("EQUAL") << "EQUAL" << 1;
    QTest::newRow("equal") << "equal" << 0;
    QTest::newRow("NOT") << "NOT" << 2;
    QTest::newRow("GREAT") << "GREAT" << 3;
    QTest::newRow("GREATOREQUAL") << "GREATOREQUAL" << 4;
    QTest::newRow("LESS") << "LESS" << 5;
    QTest::newRow("LESSOREQUAL") << "LESSOREQUAL" << 6;
    QTest::newRow("other") << "ABOUT" << 0;
}

void TestDependencies::comparisons()
{
    QFETCH(QString, is);
    QFETCH(int, code);
    const QString attribute = is.isNull() ? QString() : QStringLiteral(" IS=\"%1\"").arg(is);
    const auto parser =
        read(kNetwork, QStringLiteral("<Dependencies><Gateway><Hide><Condition>"
                                      "<IPAddress CURRENT=\"1.2.3.4\"%1/>"
                                      "</Condition></Hide></Gateway></Dependencies>")
                           .arg(attribute));
    const ConditionNode* node =
        parser->dependencies().first()->constraints().first()->conditions().first().first();
    QCOMPARE(node->comparison(), code);
    QCOMPARE(node->value(), QString("1.2.3.4"));
}

void TestDependencies::sectionsRead()
{
    StderrCapture capture;
    const auto parser =
        read("<Paper><PaperSize TYPE=\"PAPERSIZE\" CURRENT=\"A4\"><A4/><Letter/></PaperSize>"
             "<Margin TYPE=\"INTEGER\"/><Duplex TYPE=\"CHECKBOX\"><Off/><On/></Duplex></Paper>",
             "<Dependencies><Margin><Constraint>"
             "<Condition><PaperSize CURRENT=\"A4\"/><Duplex CURRENT=\"On\" IS=\"NOT\"/></Condition>"
             "<Condition><PaperSize CURRENT=\"Letter\"/></Condition>"
             "<Value><A4/><Letter/></Value>"
             "<Attributes><Attribute NAME=\"MAX\" VALUE=\"20\"/>"
             "<RefAttribute NAME=\"MAX\" VALUE=\"PaperSize#maxtopmargin\" REF=\"TRUE\"/>"
             "<Attribute NAME=\"MIN\"/><Other NAME=\"A\" VALUE=\"B\"/></Attributes>"
             "<Surprise/></Constraint></Margin></Dependencies>");
    const QByteArray log = capture.text();
    QVERIFY(log.contains("Warning: unexpected constraint tag='Surprise'"));
    const Constraint* constraint = parser->dependencies().first()->constraints().first();
    QCOMPARE(constraint->conditions().size(), 2);
    QCOMPARE(constraint->conditions().at(0).size(), 2);
    QCOMPARE(constraint->conditions().at(0).at(1)->comparison(), int(ConditionNode::cmpNot));
    QCOMPARE(constraint->values(), QStringList({"A4", "Letter"}));
    QCOMPARE(constraint->attributes().size(), 2);
    const Attribute* plain = constraint->attributes().at(0);
    QVERIFY(!plain->isReference());
    QCOMPARE(plain->name(), QString("MAX"));
    QCOMPARE(plain->value(), QString("20"));
    const auto* ref = dynamic_cast<const RefAttribute*>(constraint->attributes().at(1));
    QVERIFY(ref && ref->isReference());
    QCOMPARE(ref->parts(), QStringList({"PaperSize", "maxtopmargin"}));
    QCOMPARE(ref->referencedId(), QString("PaperSize"));
    QCOMPARE(ref->referencedField(), QString("maxtopmargin"));
    QCOMPARE(ref->referencedElement(), parser->findElement("PaperSize"));
    QVERIFY(constraint->refersTo(parser->findElement("Duplex")));
    QVERIFY(!constraint->refersTo(parser->findElement("Margin")));
}

void TestDependencies::elementAccess()
{
    const auto parser =
        read(kNetwork, "<Dependencies><SubnetMask><Disable><Condition><IPAddress CURRENT=\"\"/>"
                       "</Condition></Disable></SubnetMask></Dependencies>");
    Element* ip = parser->findElement("IPAddress");
    Element* mask = parser->findElement("SubnetMask");
    Element* gateway = parser->findElement("Gateway");
    QCOMPARE(mask->dependencies().size(), 1);
    QCOMPARE(gateway->dependencies().size(), 1);
    QVERIFY(ip->dependencies().isEmpty());
    QCOMPARE(ip->testedInDependencies().size(), 2);
    QCOMPARE(mask->testedInDependencies().size(), 1);
    QCOMPARE(ip->dependentElements(), QList<Element*>({mask, gateway}));
    QCOMPARE(mask->dependentElements(), QList<Element*>({gateway}));
}

void TestDependencies::gatewayRule_data()
{
    QTest::addColumn<QString>("gateway");
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<bool>("valid");
    QTest::newRow("empty") << ""
                           << ""
                           << "" << true;
    QTest::newRow("same subnet") << "192.168.1.1"
                                 << "192.168.1.10"
                                 << "255.255.255.0" << true;
    QTest::newRow("other subnet") << "192.168.2.1"
                                  << "192.168.1.10"
                                  << "255.255.255.0" << false;
    QTest::newRow("the address itself") << "192.168.1.10"
                                        << "192.168.1.10"
                                        << "255.255.255.0" << false;
    QTest::newRow("network address") << "192.168.1.0"
                                     << "192.168.1.10"
                                     << "255.255.255.0" << false;
    QTest::newRow("broadcast") << "192.168.1.255"
                               << "192.168.1.10"
                               << "255.255.255.0" << false;
    QTest::newRow("wider mask") << "10.1.200.1"
                                << "10.1.3.4"
                                << "255.255.0.0" << true;
    QTest::newRow("malformed gateway") << "192.168.1"
                                       << "192.168.1.10"
                                       << "255.255.255.0" << false;
    QTest::newRow("part over 255") << "192.168.1.256"
                                   << "192.168.1.10"
                                   << "255.255.255.0" << false;
    QTest::newRow("letters") << "192.168.1.x"
                             << "192.168.1.10"
                             << "255.255.255.0" << false;
    QTest::newRow("no address") << "192.168.1.1"
                                << ""
                                << "255.255.255.0" << false;
    QTest::newRow("no mask") << "192.168.1.1"
                             << "192.168.1.10"
                             << "" << false;
}

void TestDependencies::gatewayRule()
{
    QFETCH(QString, gateway);
    QFETCH(QString, address);
    QFETCH(QString, mask);
    QFETCH(bool, valid);
    QCOMPARE(GatewayValidityConstraint::isValidGateway(gateway, address, mask), valid);
}

void TestDependencies::gatewayCheckedThroughElements()
{
    const auto parser = read(kNetwork, QString());
    auto* ip = qobject_cast<ConcreteElement*>(parser->findElement("IPAddress"));
    auto* gateway = qobject_cast<ConcreteElement*>(parser->findElement("Gateway"));
    QVERIFY(gateway->isValid());
    ip->valueChange("10.0.0.5");
    QVERIFY(!gateway->isValid());
    QVERIFY(!gateway->checkConstraints(ip, false));
    // A constraint that does not test the initiator is passed over.
    QVERIFY(gateway->checkConstraints(gateway, false));
    gateway->setEnabled(false);
    QVERIFY(gateway->isValid());
    gateway->setEnabled(true);
    gateway->valueChange("10.0.0.1");
    QVERIFY(gateway->isValid());
}

void TestDependencies::rereadReplacesRecords()
{
    auto parser = read(kNetwork, QString());
    QVERIFY(parser->readDependencies());
    QCOMPARE(ids(*parser), QStringList({"Gateway"}));
    QCOMPARE(parser->findElement("Gateway")->dependencies().size(), 1);
    QCOMPARE(parser->findElement("IPAddress")->dependentElements().size(), 1);
    // A new tree drops the records that pointed into the old one.
    QVERIFY(parser->readPrinterSettings());
    QVERIFY(parser->dependencies().isEmpty());
    QVERIFY(parser->findElement("Gateway")->dependencies().isEmpty());
}

QTEST_MAIN(TestDependencies)
#include "TestDependencies.moc"
