#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"
#include "Rows.h"

#include "elements/AboutElement.h"
#include "elements/AboutInfo.h"
#include "elements/BoundaryElement.h"
#include "elements/ControlBox.h"
#include "elements/DateTimeElement.h"
#include "elements/EditElement.h"
#include "elements/EditValidator.h"

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
        addRows({"type", "value", "kept"},
                {{"edit plain", "EDITBOX", "Office 2, Floor #3 / A&B", "kept"},
                 {"edit underscore", "EDITBOX", "a_b", "emptied"},
                 {"edit semicolon", "EDITBOX", "a;b", "emptied"},
                 {"edit comma inside +-. range", "EDITBOX", "a,b", "kept"},
                 {"edit apostrophe, star, at", "EDITBOX", "o'k*@x", "kept"},
                 {"edit umlaut", "EDITBOX", "Büro", "emptied"},
                 {"dial", "DIALEDITBOX", "+49 30 1234", "kept"},
                 {"dial dash", "DIALEDITBOX", "030-1234", "emptied"},
                 {"empty", "DIALEDITBOX", "", "kept"}});
    }
    void defaultPatterns()
    {
        const auto [type, value, kept] = texts<3>();
        const auto parser = SpecText::read(
            QStringLiteral("<E TYPE='%1' CURRENT=\"%2\"/>").arg(type, value.toHtmlEscaped()));
        ConcreteElement* e = read(*parser);
        QCOMPARE(e->current(), kept == "kept" ? value : QString(""));
        QCOMPARE(e->initial(), value);
        QCOMPARE(e->isChanged(), kept != "kept");
        QVERIFY(e->isValid());
    }

    // In the rows, <A ...> and <U> stand for AllowedCharacters and UnAllowedCharacters.
    void characterSets_data()
    {
        addRows(
            {"declarations", "pattern", "warning"},
            {{"allowed only", "<A>abc</A>", "[abc]*", ""},
             {"AllowedCharOnly ignores unallowed", "<A SymbolSet='AllowedCharOnly'>a-z</A><U>x</U>",
              "[a\\-z]*", "Warning: ignoring unexpected 'UnAllowedCharacters' element"},
             {"unallowed only", "<U>;_</U>", "[^;_]*", ""},
             {"MultiLanguage", "<A SymbolSet='MultiLanguage'/>", ".*", ""},
             {"MultiLanguage with unallowed", "<A SymbolSet='MultiLanguage'/><U>^]</U>",
              "[^\\^\\]]*", ""},
             {"unknown symbol set", "<A SymbolSet='EBCDIC'>ab</A>", "(default)",
              "Warning: unexpected symbolSet='EBCDIC'"},
             {"second allowed ignored", "<A>ab</A><A>cd</A>", "[ab]*",
              "Warning: ignoring excessive 'AllowedCharacters' element"},
             {"second unallowed ignored", "<U>a</U><U>b</U>", "[^a]*",
              "Warning: ignoring excessive 'UnAllowedCharacters' element"},
             {"empty allowed keeps no pattern", "<A/>", "", ""}});
    }
    void characterSets()
    {
        const auto [declarations, pattern, warning] = texts<3>();
        StderrCapture capture;
        const auto parser =
            SpecText::read(QStringLiteral("<E TYPE='EDITBOX' CURRENT='v'>%1</E>")
                               .arg(declarations)
                               .replace(QRegularExpression("<(/?)A\\b"), "<\\1AllowedCharacters")
                               .replace(QRegularExpression("<(/?)U>"), "<\\1UnAllowedCharacters>"));
        const QByteArray log = capture.text();
        QCOMPARE(read(*parser)->validationPattern(),
                 pattern == "(default)" ? EditElement::defaultPattern : pattern);
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

    // Each row: values separated by '/', all valid or all invalid.
    void addressPatterns_data()
    {
        addRows({"type", "values", "valid"},
                {{"ip valid", "IPADDRESS", "192.168.1.10//010.0.0.1/1..2.", "valid"},
                 {"ip invalid", "IPADDRESS", "256.1.1.1/1.1.1/a.b.c.d", "invalid"},
                 {"mask valid", "SUBNETMASK", "255.255.255.0/255.255.252.0/255", "valid"},
                 {"mask invalid", "SUBNETMASK", "255.255.0.255/255.255.253.0/", "invalid"}});
    }
    void addressPatterns()
    {
        const auto [type, values, valid] = texts<3>();
        const auto parser = SpecText::read(QStringLiteral("<E TYPE='%1'/>").arg(type));
        for (const QString& value : values.split('/')) {
            read(*parser)->valueChange(value);
            QVERIFY2(read(*parser)->isValid() == (valid == "valid"), qPrintable(value));
        }
    }

    void maxLength()
    {
        // MAX limits the editor, at once and later; without a number the editor's own limit holds.
        const auto parser =
            SpecText::read("<S TYPE='EDITBOX' MAX='4'/><T TYPE='EDITBOX' MAX='x'/>");
        QWidget panel;
        for (const char* id : {"S", "T"})
            parser->findElement(id)->createControl(&panel);
        QCOMPARE(editorOf(parser->findElement("S"))->maxLength(), 4);
        QCOMPARE(editorOf(parser->findElement("T"))->maxLength(), QLineEdit().maxLength());
        qobject_cast<BoundaryElement*>(parser->findElement("T"))->maxChange("2");
        QCOMPARE(editorOf(parser->findElement("T"))->maxLength(), 2);
    }

    void staticText()
    {
        const auto parser =
            SpecText::read("<T TYPE='STATICTEXT' STRING='Note' TEXTLABEL='Wait &lt;5&gt;'/>"
                           "<U TYPE='STATICTEXT' STRING='Plain'/>");
        QWidget panel;
        // A value read from the device has its title beside it.
        QWidget* box = parser->findElement("T")->createControl(&panel);
        QCOMPARE(ControlBox::label(box)->text(), QString("Note"));
        auto* label = qobject_cast<QLabel*>(parser->findElement("T")->control());
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
        addRows({"format", "shown"}, {{"no format", "", "2007-03-05 17:09"},
                                      {"AM/PM", "yyyy-MM-dd hh:mm AM/PM", "2007-03-05 05:09 PM"},
                                      {"24 hours", "dd.MM.yyyy hh:mm", "2007-03-05 17:09"},
                                      {"am/pm lower case", "hh:mm am/pm", "2007-03-05 17:09"}});
    }
    void dateTimeShown()
    {
        const auto [format, shown] = texts<2>();
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
        addRows({"record", "aboutText", "texts"},
                {{"record and text", "yes", "Firmware 7",
                  "Model X|Tavolor|Version 2.03.11|(c) 2026|Firmware 7"},
                 {"record only", "yes", "", "Model X|Tavolor|Version 2.03.11|(c) 2026"},
                 {"device text only", "no", "Firmware 7", "Firmware 7"}});
    }
    void about()
    {
        QFETCH(QString, record);
        const bool withRecord = record == "yes";
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
        QCOMPARE(logoLabel->pixmap().size(), withRecord ? QSize(8, 4) : QSize(0, 0));
    }
};

QTEST_MAIN(TestTextControls)
#include "TestTextControls.moc"
