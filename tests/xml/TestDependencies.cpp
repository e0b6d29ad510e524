#include "../app/StderrCapture.h"
#include "../elements/Rows.h"
#include "SpecText.h"

#include "elements/ConcreteElement.h"
#include "xml/ConditionNode.h"
#include "xml/Dependency.h"
#include "xml/GatewayValidityConstraint.h"
#include "xml/RefAttribute.h"

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
                                                const QByteArray& file = QByteArray())
    {
        QFile out("dependencies.xml");
        if (!file.isNull() && out.open(QIODevice::WriteOnly))
            out.write(file);
        out.close();
        auto parser = SpecText::read(settings, "PrinterSettingsInfo", declarations);
        parser->readDependencies();
        return parser;
    }
    // "kind", "+" when self-checked, then "[tag comparison=value ...]" per condition group.
    static QString describe(const Constraint* c)
    {
        QString out = QString::number(c->kind()) + (c->isSelfChecked() ? "+" : "-");
        for (const Constraint::ConditionGroup& group : c->conditions()) {
            QStringList nodes;
            for (const ConditionNode* node : group)
                nodes << QString("%1%2=%3")
                             .arg(node->tag())
                             .arg(node->comparison())
                             .arg(node->value());
            out += "[" + nodes.join(' ') + "]";
        }
        return out;
    }
    // "id(constraint,...)" per record, "?" after an id that names no setting.
    static QString summary(const SettingsParser& parser)
    {
        QStringList out;
        for (const Dependency* dependency : parser.dependencies()) {
            QStringList constraints;
            for (const Constraint* constraint : dependency->constraints())
                constraints << describe(constraint);
            out << dependency->id() + (dependency->element() ? "" : "?") + "(" +
                       constraints.join(',') + ")";
        }
        return out.join(' ');
    }

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
        QCOMPARE(summary(*parser), QString("Gateway(4+[SubnetMask1= IPAddress1=])"));
        const Dependency* gateway = parser->dependencies().first();
        QCOMPARE(gateway->element(), parser->findElement("Gateway"));
        const Constraint* rule = gateway->constraints().first();
        QVERIFY(dynamic_cast<const GatewayValidityConstraint*>(rule));
        QCOMPARE(rule->conditions().first().at(0)->element(), parser->findElement("SubnetMask"));
        // Written into the document too.
        QVERIFY(!parser->find("root/Dependencies/Gateway/GatewayValidity/Condition/IPAddress")
                     .isNull());
        // Read again, the records replace the earlier ones; a new tree drops them.
        QVERIFY(parser->readDependencies());
        QCOMPARE(summary(*parser), QString("Gateway(4+[SubnetMask1= IPAddress1=])"));
        QCOMPARE(parser->findElement("Gateway")->dependencies().size(), 1);
        QCOMPARE(parser->findElement("IPAddress")->dependentElements().size(), 1);
        QVERIFY(parser->readPrinterSettings());
        QVERIFY(parser->dependencies().isEmpty());
        QVERIFY(parser->findElement("Gateway")->dependencies().isEmpty());
    }
    // The declarations of the settings document, after those of "dependencies.xml" ("-": no
    // file), with the built-in gateway rule completing what is declared for the gateway.
    void merged_data()
    {
        const char* builtIn = "Gateway(4+[SubnetMask1= IPAddress1=])";
        addRows({"declarations", "file", "expected"},
                {{"declared gateway rule kept",
                  "<Gateway><GatewayValidity SELFCHECKED='FALSE'><Condition><IPAddress/>"
                  "</Condition></GatewayValidity></Gateway>",
                  "-", "Gateway(4-[IPAddress1=])"},
                 {"gateway without validity completed",
                  "<Gateway><Hide><Condition><IPAddress CURRENT=''/></Condition></Hide></Gateway>",
                  "-", "Gateway(5+[IPAddress1=],4+[SubnetMask1= IPAddress1=])"},
                 {"file first, then the document", "<Copies><Enable/></Copies>",
                  "<root><Dependencies><PaperSize><Constraint/></PaperSize><Tray><Disable/></Tray>"
                  "</Dependencies></root>",
                  "PaperSize?(3+) Tray?(1+) Copies?(2+) Gateway(4+[SubnetMask1= IPAddress1=])"},
                 {"file not XML", "", "<root><Dependencies><A>", builtIn},
                 {"file without Dependencies", "", "<root><Other><A/></Other></root>", builtIn},
                 {"empty file", "", "", builtIn}});
    }
    void merged()
    {
        QFETCH(QString, declarations);
        QFETCH(QString, file);
        QFETCH(QString, expected);
        const auto parser = read(kNetwork, "<Dependencies>" + declarations + "</Dependencies>",
                                 file == "-" ? QByteArray() : file.toUtf8());
        QCOMPARE(summary(*parser), expected);
    }
    // How a declaration's words are read: the constraint kind from its tag, SELFCHECKED, and the
    // comparison of a condition from IS (a row of IS alone goes into a Hide condition).
    void words_data()
    {
        QTest::addColumn<QString>("constraint");
        QTest::addColumn<QString>("expected");
        const char* rows[][2] = {
            {"", "5+[IPAddress1=1.2.3.4]"},
            {"<Disable SELFCHECKED='FALSE'/>", "1-"},
            {"<Enable SELFCHECKED='false'/>", "2-"},
            {"<Constraint SELFCHECKED='FaLsE'/>", "3-"},
            {"<GatewayValidity SELFCHECKED='TRUE'/>", "4+"},
            {"<Hide SELFCHECKED='no'/>", "5+"},
            {"<Hide SELFCHECKED='0'/>", "5+"},
            {"<hide/>", "0+"},
            {"<Show/>", "0+"},
            {"IS='EQUAL'", "5+[IPAddress1=1.2.3.4]"},
            {"IS='equal'", "5+[IPAddress0=1.2.3.4]"},
            {"IS='NOT'", "5+[IPAddress2=1.2.3.4]"},
            {"IS='GREAT'", "5+[IPAddress3=1.2.3.4]"},
            {"IS='GREATOREQUAL'", "5+[IPAddress4=1.2.3.4]"},
            {"IS='LESS'", "5+[IPAddress5=1.2.3.4]"},
            {"IS='LESSOREQUAL'", "5+[IPAddress6=1.2.3.4]"},
            {"IS='ABOUT'", "5+[IPAddress0=1.2.3.4]"},
        };
        for (const auto& row : rows) {
            const QString text = QString(row[0]).startsWith('<')
                                     ? QString(row[0])
                                     : QString("<Hide><Condition><IPAddress CURRENT='1.2.3.4' %1/>"
                                               "</Condition></Hide>")
                                           .arg(row[0]);
            QTest::newRow(*row[0] ? row[0] : "no IS") << text << QString(row[1]);
        }
    }
    void words()
    {
        QFETCH(QString, constraint);
        QFETCH(QString, expected);
        const auto parser =
            read(kNetwork, "<Dependencies><Gateway>" + constraint + "</Gateway></Dependencies>");
        const Constraint* rule = parser->dependencies().first()->constraints().first();
        QCOMPARE(describe(rule), expected);
        QCOMPARE(Constraint::kindFromTag(constraint.section(QRegularExpression("[<> /]"), 1, 1)),
                 rule->kind());
        QCOMPARE(dynamic_cast<const GatewayValidityConstraint*>(rule) != nullptr,
                 rule->kind() == 4);
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
        QVERIFY(capture.text().contains("Warning: unexpected constraint tag='Surprise'"));
        const Constraint* constraint = parser->dependencies().first()->constraints().first();
        QCOMPARE(describe(constraint), QString("3+[PaperSize1=A4 Duplex2=On][PaperSize1=Letter]"));
        QCOMPARE(constraint->values(), QStringList({"A4", "Letter"}));
        QStringList attributes;
        for (const Attribute* a : constraint->attributes())
            attributes << QString("%1%2%3").arg(a->name(), a->isReference() ? "->" : "=",
                                                a->value());
        QCOMPARE(attributes, QStringList({"MAX=20", "MAX->PaperSize#maxtopmargin"}));
        const auto* ref = dynamic_cast<const RefAttribute*>(constraint->attributes().at(1));
        QVERIFY(ref);
        QCOMPARE(ref->parts(), QStringList({"PaperSize", "maxtopmargin"}));
        QCOMPARE(ref->referencedId() + '#' + ref->referencedField(), "PaperSize#maxtopmargin");
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
        QString counts;
        for (Element* e : {ip, mask, gateway})
            counts += QString(" %1/%2")
                          .arg(e->dependencies().size())
                          .arg(e->testedInDependencies().size());
        QCOMPARE(counts, QString(" 0/2 1/1 1/0"));
        QCOMPARE(ip->dependentElements(), QList<Element*>({mask, gateway}));
        QCOMPARE(mask->dependentElements(), QList<Element*>({gateway}));
    }
    void gatewayRule_data()
    {
        const char* mask = "255.255.255.0";
        // valid when the name starts with "+"
        addRows({"gateway", "address", "mask"},
                {{"+empty", "", "", ""},
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
                 {"no mask", "192.168.1.1", "192.168.1.10", ""}});
    }
    void gatewayRule()
    {
        QFETCH(QString, gateway);
        QFETCH(QString, address);
        QFETCH(QString, mask);
        QCOMPARE(GatewayValidityConstraint::isValidGateway(gateway, address, mask),
                 QTest::currentDataTag()[0] == '+');
    }
    void gatewayCheckedThroughElements()
    {
        const auto parser = read(kNetwork, QString());
        auto* ip = qobject_cast<ConcreteElement*>(parser->findElement("IPAddress"));
        auto* gateway = qobject_cast<ConcreteElement*>(parser->findElement("Gateway"));
        QVERIFY(gateway->isValid());
        ip->valueChange("10.0.0.5");
        QVERIFY(!gateway->isValid() && !gateway->checkConstraints(ip, false));
        // A constraint that does not test the initiator is passed over.
        QVERIFY(gateway->checkConstraints(gateway, false));
        gateway->setEnabled(false);
        QVERIFY(gateway->isValid());
        gateway->setEnabled(true);
        gateway->valueChange("10.0.0.1");
        QVERIFY(gateway->isValid());
    }
};

QTEST_MAIN(TestDependencies)
#include "TestDependencies.moc"
