#include "../xml/SpecText.h"

#include "BoundaryElement.h"
#include "DateTimeElement.h"
#include "FactoryElement.h"
#include "TextElement.h"

#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

// The typed settings' line editors, the date-time editor and the static text: what they show,
// what typing can enter, and silent programmatic values.
class TestTextControls : public QObject
{
    Q_OBJECT

private:
    static QLineEdit* editorOf(Element* element)
    {
        return qobject_cast<QLineEdit*>(element->control());
    }

private slots:
    void typing_data();
    void typing();
    void maxLength_data();
    void maxLength();
    void setControlValueIsSilent();
    void staticText();
    void dateTimeEditStoresText();
};

void TestTextControls::typing_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("stored");
    QTest::newRow("edit drops '_'") << "<S TYPE=\"EDITBOX\"/>"
                                    << "ab_c"
                                    << "abc";
    QTest::newRow("dial keeps digits") << "<S TYPE=\"DIALEDITBOX\"/>"
                                       << "+49 x1"
                                       << "+49 1";
    QTest::newRow("allowed set")
        << "<S TYPE=\"EDITBOX\"><AllowedCharacters>xy</AllowedCharacters></S>"
        << "axyb"
        << "xy";
    QTest::newRow("ip address") << "<S TYPE=\"IPADDRESS\"/>"
                                << "192.168.1.2555"
                                << "192.168.1.255";
    QTest::newRow("ip part above 255") << "<S TYPE=\"IPADDRESS\"/>"
                                       << "300"
                                       << "30";
    QTest::newRow("subnet mask") << "<S TYPE=\"SUBNETMASK\"/>"
                                 << "255.255.3"
                                 << "255.255.";
}

void TestTextControls::typing()
{
    QFETCH(QString, setting);
    QFETCH(QString, keys);
    QFETCH(QString, stored);
    const auto parser = SpecText::read(setting);
    auto* element = qobject_cast<FactoryElement*>(parser->findElement("S"));
    QWidget panel;
    QWidget* box = element->createControl(&panel);
    QCOMPARE(box->objectName(), QString("hbox"));
    QCOMPARE(box->findChild<QLabel*>("label")->buddy(), element->control());
    panel.show();
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    QTest::keyClicks(editorOf(element), keys);
    QCOMPARE(editorOf(element)->text(), stored);
    QCOMPARE(element->current(), stored);
    // One announcement per character the editor took.
    QCOMPARE(spy.count(), stored.size());
}

void TestTextControls::maxLength_data()
{
    QTest::addColumn<QString>("max");
    QTest::addColumn<int>("length");
    QTest::newRow("MAX") << " MAX=\"4\"" << 4;
    QTest::newRow("no MAX") << "" << 32767;
    QTest::newRow("MAX not a number") << " MAX=\"x\"" << 32767;
}

void TestTextControls::maxLength()
{
    QFETCH(QString, max);
    QFETCH(int, length);
    const auto parser = SpecText::read(QStringLiteral("<S TYPE=\"EDITBOX\"%1/>").arg(max));
    auto* element = qobject_cast<BoundaryElement*>(parser->findElement("S"));
    QWidget panel;
    element->createControl(&panel);
    QCOMPARE(editorOf(element)->maxLength(), length);
    // A later limit reaches the editor.
    element->maxChange("2");
    QCOMPARE(editorOf(element)->maxLength(), 2);
}

void TestTextControls::setControlValueIsSilent()
{
    const auto parser = SpecText::read("<S TYPE=\"EDITBOX\" CURRENT=\"old\" FACTORY=\"new\"/>");
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

void TestTextControls::staticText()
{
    const auto parser =
        SpecText::read("<T TYPE=\"STATICTEXT\" STRING=\"Note\" TEXTLABEL=\"Wait &lt;5&gt;\"/>"
                       "<U TYPE=\"STATICTEXT\" STRING=\"Plain\"/>");
    Element* element = parser->findElement("T");
    QWidget panel;
    auto* label = qobject_cast<QLabel*>(element->createControl(&panel));
    QVERIFY(label);
    QCOMPARE(label->text(), QString("Wait <5>"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QVERIFY(label->wordWrap());
    QCOMPARE(label->accessibleName(), QString("Note"));
    // Without TEXTLABEL the title shows.
    label = qobject_cast<QLabel*>(parser->findElement("U")->createControl(&panel));
    QCOMPARE(label->text(), QString("Plain"));
}

void TestTextControls::dateTimeEditStoresText()
{
    const auto parser =
        SpecText::read("<D TYPE=\"DATETIME\" STRING=\"Clock\" CURRENT=\"2007-03-05 17:09\" "
                       "FormatConstraint=\"yyyy-MM-dd hh:mm AM/PM\"/>");
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
    // Switching the format while shown drops the indicator at once.
    element->setDisplayFormat("yyyy-MM-dd hh:mm");
    QCOMPARE(editor->text(), QString("2007-03-05 18:09:00"));
}

QTEST_MAIN(TestTextControls)
#include "TestTextControls.moc"
