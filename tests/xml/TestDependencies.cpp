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
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

const char* const kNetwork = "<Net><IPAddress TYPE=\"IPADDRESS\" CURRENT=\"192.168.1.10\"/>"
                             "<SubnetMask TYPE=\"IPADDRESS\" CURRENT=\"255.255.255.0\"/>"
                             "<Gateway TYPE=\"IPADDRESS\" CURRENT=\"192.168.1.1\"/></Net>";

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
    void init()
    {
        QVERIFY(dir.isValid());
        QVERIFY(QDir::setCurrent(dir.path()));
    }
    void cleanup() { QFile::remove("dependencies.xml"); }
    void builtInGateway()
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
        QVERIFY(!parser->find("root/Dependencies/Gateway/GatewayValidity/Condition/IPAddress")
                     .isNull());
    }
    void declaredGatewayKept()
    {
        const auto parser = read(
            kNetwork, "<Dependencies><Gateway><GatewayValidity SELFCHECKED=\"FALSE\"><Condition>"
                      "<IPAddress/></Condition></GatewayValidity></Gateway></Dependencies>");
        QCOMPARE(ids(*parser), QStringList({"Gateway"}));
        const Constraint* rule = parser->dependencies().first()->constraints().first();
        QVERIFY(!rule->isSelfChecked());
        QCOMPARE(rule->conditions().first().size(), 1);
    }
    void gatewayWithoutValidityCompleted()
    {
        const auto parser =
            read(kNetwork, "<Dependencies><Gateway><Hide><Condition><IPAddress "
                           "CURRENT=\"\"/></Condition></Hide></Gateway></Dependencies>");
        const Dependency* gateway = parser->dependencies().first();
        QCOMPARE(gateway->constraints().size(), 2);
        QCOMPARE(gateway->constraints().at(0)->kind(), int(Constraint::ckHide));
        QCOMPARE(gateway->constraints().at(1)->kind(), int(Constraint::ckGatewayValidity));
    }
    void mergeOrder()
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
    void brokenFileIgnored_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("not XML") << QByteArray("<root><Dependencies><A>");
        QTest::newRow("no Dependencies") << QByteArray("<root><Other><A/></Other></root>");
        QTest::newRow("empty") << QByteArray("");
    }
    void brokenFileIgnored()
    {
        QFETCH(QByteArray, file);
        const auto parser = read(kNetwork, QString(), file);
        QCOMPARE(ids(*parser), QStringList({"Gateway"}));
    }
    // How a declaration's words are read: the constraint kind from its tag, SELFCHECKED, and the
    // comparison of a condition from IS.
    void words_data()
    {
        QTest::addColumn<QString>("constraint");
        QTest::addColumn<QString>("expected"); // kind, self-checked, comparison
        const char* rows[][2] = {
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4'/></Condition></Hide>", "5 1 1"},
            {"<Disable SELFCHECKED='FALSE'/>", "1 0 -"},
            {"<Enable SELFCHECKED='false'/>", "2 0 -"},
            {"<Constraint SELFCHECKED='FaLsE'/>", "3 0 -"},
            {"<GatewayValidity SELFCHECKED='TRUE'/>", "4 1 -"},
            {"<Hide SELFCHECKED='no'/>", "5 1 -"},
            {"<Hide SELFCHECKED='0'/>", "5 1 -"},
            {"<hide/>", "0 1 -"},
            {"<Show/>", "0 1 -"},
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4' IS='EQUAL'/></Condition></Hide>",
             "5 1 1"},
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4' IS='equal'/></Condition></Hide>",
             "5 1 0"},
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4' IS='NOT'/></Condition></Hide>",
             "5 1 2"},
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4' IS='GREAT'/></Condition></Hide>",
             "5 1 3"},
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4' IS='GREATOREQUAL'/></Condition></Hide>",
             "5 1 4"},
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4' IS='LESS'/></Condition></Hide>",
             "5 1 5"},
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4' IS='LESSOREQUAL'/></Condition></Hide>",
             "5 1 6"},
            {"<Hide><Condition><IPAddress CURRENT='1.2.3.4' IS='ABOUT'/></Condition></Hide>",
             "5 1 0"},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[0]) << QString(row[1]);
    }
    void words()
    {
        QFETCH(QString, constraint);
        QFETCH(QString, expected);
        const auto parser =
            read(kNetwork, "<Dependencies><Gateway>" + constraint + "</Gateway></Dependencies>");
        const Constraint* rule = parser->dependencies().first()->constraints().first();
        QCOMPARE(Constraint::kindFromTag(constraint.section(QRegularExpression("[<> /]"), 1, 1)),
                 rule->kind());
        QCOMPARE(dynamic_cast<const GatewayValidityConstraint*>(rule) != nullptr,
                 rule->kind() == 4);
        QString comparison = "-";
        if (!rule->conditions().isEmpty()) {
            const ConditionNode* node = rule->conditions().first().first();
            QCOMPARE(node->value(), QString("1.2.3.4"));
            comparison = QString::number(node->comparison());
        }
        QCOMPARE(
            QString("%1 %2 %3").arg(rule->kind()).arg(int(rule->isSelfChecked())).arg(comparison),
            expected);
    }
    void sectionsRead()
    {
        StderrCapture capture;
        const auto parser = read(
            "<Paper><PaperSize TYPE=\"PAPERSIZE\" CURRENT=\"A4\"><A4/><Letter/></PaperSize>"
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
    void elementAccess()
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
    void gatewayRule_data()
    {
        QTest::addColumn<QString>("gateway");
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("mask");
        QTest::addColumn<bool>("valid");
        const char* mask = "255.255.255.0";
        const char* rows[][4] = {
            // name, gateway, address, mask; valid when the name starts with "+"
            {"+empty", "", "", ""},
            {"+same subnet", "192.168.1.1", "192.168.1.10", mask},
            {"other subnet", "192.168.2.1", "192.168.1.10", mask},
            {"the address itself", "192.168.1.10", "192.168.1.10", mask},
            {"network address", "192.168.1.0", "192.168.1.10", mask},
            {"broadcast", "192.168.1.255", "192.168.1.10", mask},
            {"+wider mask", "10.1.200.1", "10.1.3.4", "255.255.0.0"},
            {"malformed gateway", "192.168.1", "192.168.1.10", mask},
            {"part over 255", "192.168.1.256", "192.168.1.10", mask},
            {"letters", "192.168.1.x", "192.168.1.10", mask},
            {"no address", "192.168.1.1", "", mask},
            {"no mask", "192.168.1.1", "192.168.1.10", ""},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[1]) << QString(row[2]) << QString(row[3])
                                  << (row[0][0] == '+');
    }
    void gatewayRule()
    {
        QFETCH(QString, gateway);
        QFETCH(QString, address);
        QFETCH(QString, mask);
        QFETCH(bool, valid);
        QCOMPARE(GatewayValidityConstraint::isValidGateway(gateway, address, mask), valid);
    }
    void gatewayCheckedThroughElements()
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
    void rereadReplacesRecords()
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

QTEST_MAIN(TestDependencies)
#include "TestDependencies.moc"
