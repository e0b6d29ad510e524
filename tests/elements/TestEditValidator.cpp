#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"

#include "EditElement.h"
#include "EditValidator.h"

#include <QtTest>

namespace {

ConcreteElement* read(SettingsParser& parser)
{
    return qobject_cast<ConcreteElement*>(parser.findElement("E"));
}

} // namespace

// Validation patterns of the typed-text kinds and the character-set declarations behind them.
class TestEditValidator : public QObject
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
};

QTEST_MAIN(TestEditValidator)
#include "TestEditValidator.moc"
