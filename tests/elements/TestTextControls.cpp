#include "../xml/SpecText.h"

#include "BoundaryElement.h"
#include "DateTimeElement.h"
#include "FactoryElement.h"

#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

namespace {

QLineEdit* editorOf(Element* element)
{
    return qobject_cast<QLineEdit*>(element->control());
}

} // namespace

// The typed settings' line editors, the date-time value and its editor, and the static text:
// what they show, what typing can enter, and silent programmatic values.
class TestTextControls : public QObject
{
    Q_OBJECT

private slots:
    void typing_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("stored");
        QTest::newRow("edit drops '_'") << "<S TYPE='EDITBOX'/>" << QString("ab_c") << "abc";
        QTest::newRow("dial keeps digits")
            << "<S TYPE='DIALEDITBOX'/>" << QString("+49 x1") << "+49 1";
        QTest::newRow("allowed set")
            << "<S TYPE='EDITBOX'><AllowedCharacters>xy</AllowedCharacters></S>" << QString("axyb")
            << "xy";
        QTest::newRow("ip address")
            << "<S TYPE='IPADDRESS'/>" << QString("192.168.1.2555") << "192.168.1.255";
        QTest::newRow("ip part above 255") << "<S TYPE='IPADDRESS'/>" << QString("300") << "30";
        QTest::newRow("subnet mask")
            << "<S TYPE='SUBNETMASK'/>" << QString("255.255.3") << "255.255.";
    }
    void typing()
    {
        QFETCH(QString, setting);
        QFETCH(QString, keys);
        QFETCH(QString, stored);
        const auto parser = SpecText::read(setting);
        auto* element = qobject_cast<FactoryElement*>(parser->findElement("S"));
        QWidget panel;
        QWidget* box = element->createControl(&panel);
        QCOMPARE(box->findChild<QLabel*>("label")->buddy(), element->control());
        panel.show();
        QSignalSpy spy(element, &ConcreteElement::valueChanged);
        QTest::keyClicks(editorOf(element), keys);
        QCOMPARE(editorOf(element)->text(), stored);
        QCOMPARE(element->current(), stored);
        // One announcement per character the editor took.
        QCOMPARE(spy.count(), stored.size());
    }

    void maxLength_data()
    {
        QTest::addColumn<QString>("max");
        QTest::addColumn<int>("length");
        QTest::newRow("MAX") << " MAX='4'" << 4;
        QTest::newRow("no MAX") << "" << 32767;
        QTest::newRow("MAX not a number") << " MAX='x'" << 32767;
    }
    void maxLength()
    {
        QFETCH(QString, max);
        QFETCH(int, length);
        const auto parser = SpecText::read(QStringLiteral("<S TYPE='EDITBOX'%1/>").arg(max));
        auto* element = qobject_cast<BoundaryElement*>(parser->findElement("S"));
        QWidget panel;
        element->createControl(&panel);
        QCOMPARE(editorOf(element)->maxLength(), length);
        // A later limit reaches the editor.
        element->maxChange("2");
        QCOMPARE(editorOf(element)->maxLength(), 2);
    }

    void setControlValueIsSilent()
    {
        const auto parser = SpecText::read("<S TYPE='EDITBOX' CURRENT='old'/>");
        auto* element = qobject_cast<FactoryElement*>(parser->findElement("S"));
        QWidget panel;
        element->createControl(&panel);
        QCOMPARE(editorOf(element)->text(), QString("old"));
        QSignalSpy spy(element, &ConcreteElement::valueChanged);
        element->setControlValue("new");
        QCOMPARE(editorOf(element)->text(), QString("new"));
        QCOMPARE(spy.count(), 0);
        panel.show();
        QTest::keyClick(editorOf(element), Qt::Key_S);
        QCOMPARE(element->current(), QString("news"));
        QCOMPARE(spy.count(), 1);
    }

    void staticText()
    {
        const auto parser =
            SpecText::read("<T TYPE='STATICTEXT' STRING='Note' TEXTLABEL='Wait &lt;5&gt;'/>"
                           "<U TYPE='STATICTEXT' STRING='Plain'/>");
        QWidget panel;
        auto* label = qobject_cast<QLabel*>(parser->findElement("T")->createControl(&panel));
        QCOMPARE(label->text(), QString("Wait <5>"));
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QVERIFY(label->wordWrap());
        QCOMPARE(label->accessibleName(), QString("Note"));
        // Without TEXTLABEL the title shows.
        label = qobject_cast<QLabel*>(parser->findElement("U")->createControl(&panel));
        QCOMPARE(label->text(), QString("Plain"));
    }

    // The value is always "yyyy-MM-dd hh:mm" in 24 hours; AM/PM only changes what is shown.
    void dateTimeShown_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("shown");
        QTest::newRow("no format") << "D TYPE='DATETIME'" << QString("2007-03-05 17:09");
        QTest::newRow("AM/PM") << "D TYPE='DATETIME' FormatConstraint='yyyy-MM-dd hh:mm AM/PM'"
                               << QString("2007-03-05 05:09 PM");
        QTest::newRow("24 hours") << "D TYPE='DATETIME' FormatConstraint='dd.MM.yyyy hh:mm'"
                                  << QString("2007-03-05 17:09");
        QTest::newRow("am/pm lower case")
            << "D TYPE='DATETIME' FormatConstraint='hh:mm am/pm'" << QString("2007-03-05 17:09");
    }
    void dateTimeShown()
    {
        QFETCH(QString, setting);
        QFETCH(QString, shown);
        const auto parser =
            SpecText::read(QStringLiteral("<%1 CURRENT='2007-03-05 17:09'/>").arg(setting));
        auto* d = qobject_cast<DateTimeElement*>(parser->findElement(setting.section(' ', 0, 0)));
        QVERIFY(d);
        QCOMPARE(d->ampm(), shown.endsWith("PM"));
        QCOMPARE(d->displayValue(), shown);
    }

    void dateTimeParsed_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDateTime>("parsed");
        const QDateTime when(QDate(2007, 3, 5), QTime(17, 9), Qt::UTC);
        QTest::newRow("well formed") << "2007-03-05 17:09" << when;
        QTest::newRow("separators not checked") << "2007/03/05T17.09" << when;
        QTest::newRow("malformed gives no valid date") << "2007/3/5" << QDateTime();
        QTest::newRow("empty") << "" << QDateTime();
    }
    void dateTimeParsed()
    {
        QFETCH(QString, text);
        QFETCH(QDateTime, parsed);
        const QDateTime result = DateTimeElement::parseValue(text);
        QCOMPARE(result.isValid(), parsed.isValid());
        if (parsed.isValid())
            QCOMPARE(result, parsed);
        else
            QVERIFY(!result.date().isValid());
    }

    void dateTimeEditor()
    {
        const auto parser =
            SpecText::read("<D TYPE='DATETIME' STRING='Clock' CURRENT='2007-03-05 17:09' "
                           "FormatConstraint='yyyy-MM-dd hh:mm AM/PM'/>");
        auto* element = qobject_cast<DateTimeElement*>(parser->findElement("D"));
        QWidget panel;
        element->createControl(&panel);
        auto* editor = qobject_cast<QDateTimeEdit*>(element->control());
        QCOMPARE(editor->text(), QString("2007-03-05 05:09:00 PM"));
        QCOMPARE(editor->accessibleName(), QString("Clock"));
        panel.show();
        QSignalSpy spy(element, &ConcreteElement::valueChanged);
        editor->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClick(editor, Qt::Key_Up);
        QCOMPARE(element->current(), QString("2007-03-05 18:09"));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(element->displayValue(), QString("2007-03-05 06:09 PM"));
        // A format switched while shown reaches the editor at once.
        QVERIFY(element->setProperty("format", "yyyy-MM-dd hh:mm"));
        QVERIFY(!element->ampm());
        QCOMPARE(editor->text(), QString("2007-03-05 18:09:00"));
        QVERIFY(element->setProperty("format", "yyyy hh:mm AM/PM"));
        QVERIFY(editor->displayFormat().endsWith("AP"));
    }
};

QTEST_MAIN(TestTextControls)
#include "TestTextControls.moc"
