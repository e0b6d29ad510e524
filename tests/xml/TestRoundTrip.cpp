#include "SpecText.h"

#include "DateTimeElement.h"
#include "DialEditElement.h"
#include "EditElement.h"
#include "FloatElement.h"
#include "IPAddressElement.h"
#include "ListElement.h"
#include "NumericElement.h"
#include "Parameter.h"
#include "SettingsParser.h"
#include "SubnetMaskElement.h"

#include <QDomDocument>
#include <QFile>
#include <QRegularExpression>
#include <QtTest>

// Read a specification, change values, generate the change document, apply it to a copy of
// the specification the way a device would, read the copy, and find the new values there as
// the initial ones.
class TestRoundTrip : public QObject
{
    Q_OBJECT

private:
    typedef QMap<QString, QString> Changes;

    // A value different from the current one that the kind accepts; null when there is none.
    static QString newValue(ConcreteElement* element);
    static bool collect(Element* element, void* data);
    // The node a change document's id names: the first element with that tag under the
    // settings root, or a table cell "<table>.<row>.<column>".
    static QDomElement resolve(const QDomElement& top, const QString& id);
    static QDomElement firstByTag(const QDomElement& top, const QString& tag);
    static QString apply(const QString& specification, const QString& changes);

private slots:
    void roundTrip_data();
    void roundTrip();
};

struct Collected
{
    SettingsParser* parser;
    QMap<QString, QString> changes;
};

QString TestRoundTrip::newValue(ConcreteElement* element)
{
    if (auto* list = qobject_cast<ListElement*>(element)) {
        for (const Parameter* parameter : list->parameters()) {
            if (parameter->id() != element->current())
                return parameter->id();
        }
        return QString();
    }
    if (auto* number = qobject_cast<FloatElement*>(element))
        return number->min().isEmpty() ? QString("1.5") : number->min();
    if (auto* number = qobject_cast<NumericElement*>(element))
        return number->min().isEmpty() ? QString("1") : number->min();
    if (qobject_cast<SubnetMaskElement*>(element))
        return "255.255.0.0";
    if (qobject_cast<IPAddressElement*>(element))
        return "10.1.2.3";
    if (qobject_cast<DateTimeElement*>(element))
        return "2021-02-03 04:05";
    if (qobject_cast<EditElement*>(element) || qobject_cast<DialEditElement*>(element)) {
        for (const QString candidate : {"12", "ab", "Z"}) {
            if (ConcreteElement::matchesPattern(element->validationPattern(), candidate))
                return candidate;
        }
    }
    return QString();
}

bool TestRoundTrip::collect(Element* element, void* data)
{
    auto* collected = static_cast<Collected*>(data);
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    // Only settings that their id names unambiguously.
    if (!concrete || collected->parser->findElement(element->id()) != element)
        return true;
    const QString value = newValue(concrete);
    if (value.isNull() || value == concrete->current())
        return true;
    concrete->valueChange(value);
    collected->changes.insert(element->id(), value);
    return true;
}

QDomElement TestRoundTrip::firstByTag(const QDomElement& top, const QString& tag)
{
    if (top.tagName() == tag)
        return top;
    const QDomNodeList found = top.elementsByTagName(tag);
    return found.isEmpty() ? QDomElement() : found.item(0).toElement();
}

QDomElement TestRoundTrip::resolve(const QDomElement& top, const QString& id)
{
    const QDomElement direct = firstByTag(top, id);
    if (!direct.isNull())
        return direct;
    const QRegularExpressionMatch cell = QRegularExpression("^(.+)\\.(\\d+)\\.(\\d+)$").match(id);
    if (!cell.hasMatch())
        return QDomElement();
    QDomElement row = firstByTag(top, cell.captured(1)).firstChildElement("DataRow");
    for (int i = 1; i < cell.captured(2).toInt() && !row.isNull(); ++i)
        row = row.nextSiblingElement("DataRow");
    QDomElement column = row.firstChildElement("DataCell");
    for (int i = 1; i < cell.captured(3).toInt() && !column.isNull(); ++i)
        column = column.nextSiblingElement("DataCell");
    return column;
}

QString TestRoundTrip::apply(const QString& specification, const QString& changes)
{
    QDomDocument spec;
    QDomDocument change;
    [&] {
        QVERIFY(spec.setContent(specification));
        QVERIFY(change.setContent(changes));
    }();
    const QDomElement changeTop = change.documentElement().firstChildElement();
    const QDomElement specTop = spec.documentElement().firstChildElement(changeTop.tagName());
    for (QDomElement e = changeTop.firstChildElement(); !e.isNull(); e = e.nextSiblingElement()) {
        QDomElement target = resolve(specTop, e.tagName());
        [&] { QVERIFY2(!target.isNull(), qPrintable(e.tagName())); }();
        target.setAttribute("CURRENT", e.attribute("CURRENT"));
    }
    return spec.toString();
}

void TestRoundTrip::roundTrip_data()
{
    QTest::addColumn<QString>("specification");
    QTest::addColumn<int>("leastChanges");
    QTest::newRow("written here")
        << SpecText::wrap(
               "<General><Copies TYPE=\"INTEGER\" CURRENT=\"3\" MIN=\"1\" MAX=\"99\"/>"
               "<Tray TYPE=\"RADIOBUTTON\" CURRENT=\"T1\"><T1/><T2/></Tray>"
               "<Darkness TYPE=\"FLOAT\" CURRENT=\"0.5\" MIN=\"0.1\" MAX=\"1\" DIGITS=\"1\"/>"
               "<Clock TYPE=\"DATETIME\" CURRENT=\"2007-03-05 17:09\"/></General>"
               "<Net TYPE=\"POPUP\"><IPAddress TYPE=\"IPADDRESS\" CURRENT=\"192.168.1.2\"/>"
               "<SubnetMask TYPE=\"IPADDRESS\" CURRENT=\"255.255.255.0\"/>"
               "<Host TYPE=\"EDITBOX\" CURRENT=\"lp\"/></Net>"
               "<Sizes TYPE=\"TABLE\"><DataRow><DataCell TYPE=\"COMBOBOX\" CURRENT=\"a\"><a/><b/>"
               "</DataCell><DataCell TYPE=\"ROWSPLIT\"/><DataCell TYPE=\"INTEGER\" CURRENT=\"4\" "
               "MIN=\"2\"/></DataRow></Sizes>")
        << 9;
    for (const char* sample : {"laser_mfp.xml", "inkjet_mfp.xml"}) {
        QFile file(QStringLiteral(TAV_DATA_DIR "/") + sample);
        if (file.open(QIODevice::ReadOnly))
            QTest::newRow(sample) << QString::fromUtf8(file.readAll()) << 10;
    }
}

void TestRoundTrip::roundTrip()
{
    QFETCH(QString, specification);
    QFETCH(int, leastChanges);
    SettingsParser first;
    QVERIFY(first.setContent(specification));
    QVERIFY(first.readPrinterSettings());
    Collected collected{&first, {}};
    first.enumerateElements(collect, &collected);
    QVERIFY(collected.changes.size() >= leastChanges);

    const QString changes = first.getChanges(QString());
    const QString applied = apply(specification, changes);

    SettingsParser second;
    QVERIFY(second.setContent(applied));
    QVERIFY(second.readPrinterSettings());
    for (auto it = collected.changes.cbegin(); it != collected.changes.cend(); ++it) {
        auto* element = qobject_cast<ConcreteElement*>(second.findElement(it.key()));
        QVERIFY2(element, qPrintable(it.key()));
        QCOMPARE(element->initial(), it.value());
        QCOMPARE(element->current(), it.value());
    }
    // Nothing is left to report after the device took the changes.
    QCOMPARE(second.getChanges(QString()), QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
}

QTEST_MAIN(TestRoundTrip)
#include "TestRoundTrip.moc"
