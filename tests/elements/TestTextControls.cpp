#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"

#include "AboutElement.h"
#include "AboutInfo.h"
#include "BoundaryElement.h"
#include "DateTimeElement.h"
#include "EditElement.h"
#include "EditValidator.h"

#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QtTest>

namespace {

QLineEdit* editorOf(Element* element)
{
    return qobject_cast<QLineEdit*>(element->control());
}

ConcreteElement* read(SettingsParser& parser)
{
    return qobject_cast<ConcreteElement*>(parser.findElement("E"));
}

} // namespace

// The typed settings: validation patterns and the character-set declarations behind them, the
// line editor's length, the date-time value and its editor; and the read-only static text and
// about block.
class TestTextControls : public QObject
{
    Q_OBJECT

private slots:
    // A device value outside the pattern is shown empty, so that it reads as a change.
    void defaultPatterns_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("kept");
        const QString edit = "EDITBOX", dial = "DIALEDITBOX";
        QTest::newRow("edit plain") << edit << "Office 2, Floor #3 / A&B" << true;
        QTest::newRow("edit underscore") << edit << "a_b" << false;
        QTest::newRow("edit semicolon") << edit << "a;b" << false;
        QTest::newRow("edit comma inside +-. range") << edit << "a,b" << true;
        QTest::newRow("edit apostrophe, star, at") << edit << "o'k*@x" << true;
        QTest::newRow("edit umlaut") << edit << "Büro" << false;
        QTest::newRow("dial") << dial << "+49 30 1234" << true;
        QTest::newRow("dial dash") << dial << "030-1234" << false;
        QTest::newRow("empty") << dial << "" << true;
    }
    void defaultPatterns()
    {
        QFETCH(QString, type);
        QFETCH(QString, value);
        QFETCH(bool, kept);
        const auto parser = SpecText::read(
            QStringLiteral("<E TYPE='%1' CURRENT=\"%2\"/>").arg(type, value.toHtmlEscaped()));
        ConcreteElement* e = read(*parser);
        QCOMPARE(e->current(), kept ? value : QString(""));
        QCOMPARE(e->initial(), value);
        QCOMPARE(e->isChanged(), !kept);
        QVERIFY(e->isValid());
    }

    void characterSets_data()
    {
        QTest::addColumn<QString>("declarations");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("warning");
        const QString allowed = "<AllowedCharacters%1>%2</AllowedCharacters>";
        const QString unallowed = "<UnAllowedCharacters>%1</UnAllowedCharacters>";
        QTest::newRow("allowed only") << allowed.arg("", "abc") << "[abc]*" << QString();
        QTest::newRow("AllowedCharOnly ignores unallowed")
            << allowed.arg(" SymbolSet='AllowedCharOnly'", "a-z") + unallowed.arg("x") << "[a\\-z]*"
            << QString("Warning: ignoring unexpected 'UnAllowedCharacters' element");
        QTest::newRow("unallowed only") << unallowed.arg(";_") << "[^;_]*" << QString();
        QTest::newRow("MultiLanguage")
            << allowed.arg(" SymbolSet='MultiLanguage'", "") << ".*" << QString();
        QTest::newRow("MultiLanguage with unallowed")
            << allowed.arg(" SymbolSet='MultiLanguage'", "") + unallowed.arg("^]") << "[^\\^\\]]*"
            << QString();
        QTest::newRow("unknown symbol set")
            << allowed.arg(" SymbolSet='EBCDIC'", "ab") << QString(EditElement::defaultPattern)
            << "Warning: unexpected symbolSet='EBCDIC'";
        QTest::newRow("second allowed ignored")
            << allowed.arg("", "ab") + allowed.arg("", "cd") << "[ab]*"
            << QString("Warning: ignoring excessive 'AllowedCharacters' element");
        QTest::newRow("second unallowed ignored")
            << unallowed.arg("a") + unallowed.arg("b") << "[^a]*"
            << QString("Warning: ignoring excessive 'UnAllowedCharacters' element");
        QTest::newRow("empty allowed keeps no pattern")
            << "<AllowedCharacters/>" << QString() << QString();
    }
    void characterSets()
    {
        QFETCH(QString, declarations);
        QFETCH(QString, pattern);
        QFETCH(QString, warning);
        StderrCapture capture;
        const auto parser = SpecText::read(
            QStringLiteral("<E TYPE='EDITBOX' CURRENT='v'>%1</E>").arg(declarations));
        const QByteArray log = capture.text();
        QCOMPARE(read(*parser)->validationPattern(), pattern);
        QVERIFY2(log.contains(warning.toUtf8()), log.constData());
    }

    void asciiWithoutQuote()
    {
        QCOMPARE(EditValidator::escapeSpecialChars("a\\[]^-.*+?()$"),
                 QString("a\\\\\\[\\]\\^\\-.*+?()$"));
        const auto parser = SpecText::read(
            "<E TYPE=\"DIALEDITBOX\" CURRENT='say \"hi\"'><AllowedCharacters SymbolSet=\"ASCII\"/>"
            "<UnAllowedCharacters>\"</UnAllowedCharacters></E>");
        ConcreteElement* e = read(*parser);
        QString expected = EditValidator::printableAscii();
        expected.remove(QLatin1Char('"'));
        QCOMPARE(EditValidator::printableAscii().size(), 95);
        QCOMPARE(e->validationPattern(),
                 QStringLiteral("[%1]*").arg(EditValidator::escapeSpecialChars(expected)));
        QCOMPARE(e->current(), QString(""));
        e->valueChange("~ [a-b] ^ \\ ok");
        QVERIFY(e->isValid());
        e->valueChange("tab\there");
        QVERIFY(!e->isValid());
    }

    void addressPatterns_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("valid");
        const QString ip = "IPADDRESS", mask = "SUBNETMASK";
        QTest::newRow("ip") << ip << "192.168.1.10" << true;
        QTest::newRow("ip empty") << ip << "" << true;
        QTest::newRow("ip leading zero") << ip << "010.0.0.1" << true;
        QTest::newRow("ip empty parts") << ip << "1..2." << true;
        QTest::newRow("ip 256") << ip << "256.1.1.1" << false;
        QTest::newRow("ip three parts") << ip << "1.1.1" << false;
        QTest::newRow("ip letters") << ip << "a.b.c.d" << false;
        QTest::newRow("mask") << mask << "255.255.255.0" << true;
        QTest::newRow("mask 252") << mask << "255.255.252.0" << true;
        QTest::newRow("mask lone 255") << mask << "255" << true;
        QTest::newRow("mask not contiguous") << mask << "255.255.0.255" << false;
        QTest::newRow("mask 253") << mask << "255.255.253.0" << false;
        QTest::newRow("mask empty") << mask << "" << false;
    }
    void addressPatterns()
    {
        QFETCH(QString, type);
        QFETCH(QString, value);
        QFETCH(bool, valid);
        const auto parser = SpecText::read(QStringLiteral("<E TYPE='%1'/>").arg(type));
        read(*parser)->valueChange(value);
        QCOMPARE(read(*parser)->isValid(), valid);
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
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("shown");
        QTest::newRow("no format") << "" << QString("2007-03-05 17:09");
        QTest::newRow("AM/PM") << "yyyy-MM-dd hh:mm AM/PM" << QString("2007-03-05 05:09 PM");
        QTest::newRow("24 hours") << "dd.MM.yyyy hh:mm" << QString("2007-03-05 17:09");
        QTest::newRow("am/pm lower case") << "hh:mm am/pm" << QString("2007-03-05 17:09");
    }
    void dateTimeShown()
    {
        QFETCH(QString, format);
        QFETCH(QString, shown);
        const auto parser = SpecText::read(
            QString("<D TYPE='DATETIME' FormatConstraint='%1' CURRENT='2007-03-05 17:09'/>")
                .arg(format));
        auto* d = qobject_cast<DateTimeElement*>(parser->findElement("D"));
        QCOMPARE(d->ampm(), shown.endsWith("PM"));
        QCOMPARE(d->displayValue(), shown);
    }

    void dateTimeParsed()
    {
        const QDateTime when(QDate(2007, 3, 5), QTime(17, 9), Qt::UTC);
        QCOMPARE(DateTimeElement::parseValue("2007-03-05 17:09"), when);
        QCOMPARE(DateTimeElement::parseValue("2007/03/05T17.09"), when); // separators not checked
        QVERIFY(!DateTimeElement::parseValue("2007/3/5").date().isValid());
        QVERIFY(!DateTimeElement::parseValue("").date().isValid());
    }

    void dateTimeEditorWithAmPm()
    {
        const auto parser =
            SpecText::read("<D TYPE='DATETIME' STRING='Clock' CURRENT='2007-03-05 17:09' "
                           "FormatConstraint='yyyy-MM-dd hh:mm AM/PM'/>");
        auto* element = qobject_cast<DateTimeElement*>(parser->findElement("D"));
        QWidget panel;
        element->createControl(&panel);
        auto* editor = qobject_cast<QDateTimeEdit*>(element->control());
        QCOMPARE(editor->text(), QString("2007-03-05 05:09:00 PM"));
        panel.show();
        editor->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClick(editor, Qt::Key_Up);
        QCOMPARE(element->current(), QString("2007-03-05 18:09"));
        QCOMPARE(element->displayValue(), QString("2007-03-05 06:09 PM"));
        // A format switched while shown reaches the editor at once.
        QVERIFY(element->setProperty("format", "yyyy-MM-dd hh:mm"));
        QVERIFY(!element->ampm());
        QCOMPARE(editor->text(), QString("2007-03-05 18:09:00"));
        QVERIFY(element->setProperty("format", "yyyy hh:mm AM/PM"));
        QVERIFY(editor->displayFormat().endsWith("AP"));
    }

    // The about block: the program's record, then the device's own text.
    void about_data()
    {
        QTest::addColumn<bool>("withRecord");
        QTest::addColumn<QString>("aboutText");
        QTest::addColumn<QString>("texts");
        QTest::newRow("record and text") << true << "Firmware 7"
                                         << "Model X|Tavolor|Version 2.03.11|(c) 2026|Firmware 7";
        QTest::newRow("record only") << true << ""
                                     << "Model X|Tavolor|Version 2.03.11|(c) 2026";
        QTest::newRow("device text only") << false << "Firmware 7"
                                          << "Firmware 7";
    }
    void about()
    {
        QFETCH(bool, withRecord);
        QFETCH(QString, aboutText);
        QFETCH(QString, texts);
        const auto parser = SpecText::read(
            QString("<Info TYPE='ABOUT' STRING='About'><About>%1</About></Info>").arg(aboutText));
        auto* about = qobject_cast<AboutElement*>(parser->findElement("AboutElement"));
        QPixmap logo(8, 4);
        if (withRecord)
            about->setAboutInfo(
                AboutInfo("Model X", "Tavolor", Version(2, 3, 11), "(c) 2026", logo));
        QWidget panel;
        QWidget* control = about->createControl(&panel);
        QStringList shown;
        for (const QLabel* label : control->findChildren<QLabel*>()) {
            if (label->objectName() != QLatin1String("logoLabel"))
                shown.append(label->text());
        }
        QCOMPARE(shown.join('|'), texts);
        const auto* logoLabel = control->findChild<QLabel*>("logoLabel");
        QCOMPARE(logoLabel->isHidden(), !withRecord);
        QCOMPARE(logoLabel->pixmap().size(), withRecord ? QSize(8, 4) : QSize());
    }
};

QTEST_MAIN(TestTextControls)
#include "TestTextControls.moc"
