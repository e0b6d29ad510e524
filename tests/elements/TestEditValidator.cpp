#include "../app/StderrCapture.h"
#include "../xml/SpecText.h"

#include "EditElement.h"
#include "EditValidator.h"
#include "IPAddressElement.h"
#include "SubnetMaskElement.h"

#include <QtTest>

// Validation patterns of the typed-text kinds and the character-set declarations behind them.
class TestEditValidator : public QObject
{
    Q_OBJECT

private:
    static ConcreteElement* read(SettingsParser& parser)
    {
        return qobject_cast<ConcreteElement*>(parser.findElement("E"));
    }

private slots:
    void defaultPatterns_data();
    void defaultPatterns();
    void characterSets_data();
    void characterSets();
    void asciiWithoutQuote();
    void escapeSpecialChars_data();
    void escapeSpecialChars();
    void addressPatterns_data();
    void addressPatterns();
};

void TestEditValidator::defaultPatterns_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("kept");
    QTest::newRow("edit plain") << "EDITBOX"
                                << "Office 2, Floor #3 / A&B" << true;
    QTest::newRow("edit underscore") << "EDITBOX"
                                     << "a_b" << false;
    QTest::newRow("edit semicolon") << "EDITBOX"
                                    << "a;b" << false;
    QTest::newRow("edit comma inside +-. range") << "EDITBOX"
                                                 << "a,b" << true;
    QTest::newRow("edit apostrophe, star, at") << "EDITBOX"
                                               << "o'k*@x" << true;
    QTest::newRow("edit umlaut") << "EDITBOX"
                                 << "Büro" << false;
    QTest::newRow("dial") << "DIALEDITBOX"
                          << "+49 30 1234" << true;
    QTest::newRow("dial dash") << "DIALEDITBOX"
                               << "030-1234" << false;
    QTest::newRow("empty") << "DIALEDITBOX"
                           << "" << true;
}

void TestEditValidator::defaultPatterns()
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QFETCH(bool, kept);
    const auto parser = SpecText::read(
        QStringLiteral("<E TYPE=\"%1\" CURRENT=\"%2\"/>").arg(type, value.toHtmlEscaped()));
    ConcreteElement* e = read(*parser);
    QVERIFY(e);
    QCOMPARE(e->current(), kept ? value : QString(""));
    QCOMPARE(e->initial(), value);
    QCOMPARE(e->objectName(), value);
    QCOMPARE(e->isChanged(), !kept);
    QVERIFY(e->isValid());
}

void TestEditValidator::characterSets_data()
{
    QTest::addColumn<QString>("declarations");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("warning");
    QTest::newRow("allowed only") << "<AllowedCharacters>abc</AllowedCharacters>"
                                  << "[abc]*" << QString();
    QTest::newRow("AllowedCharOnly ignores unallowed")
        << "<AllowedCharacters SymbolSet=\"AllowedCharOnly\">a-z</AllowedCharacters>"
           "<UnAllowedCharacters>x</UnAllowedCharacters>"
        << "[a\\-z]*"
        << "Warning: ignoring unexpected 'UnAllowedCharacters' element";
    QTest::newRow("unallowed only") << "<UnAllowedCharacters>;_</UnAllowedCharacters>"
                                    << "[^;_]*" << QString();
    QTest::newRow("MultiLanguage") << "<AllowedCharacters SymbolSet=\"MultiLanguage\"/>"
                                   << ".*" << QString();
    QTest::newRow("MultiLanguage with unallowed")
        << "<AllowedCharacters SymbolSet=\"MultiLanguage\"/><UnAllowedCharacters>^]"
           "</UnAllowedCharacters>"
        << "[^\\^\\]]*" << QString();
    QTest::newRow("unknown symbol set")
        << "<AllowedCharacters SymbolSet=\"EBCDIC\">ab</AllowedCharacters>"
        << EditElement::defaultPattern << "Warning: unexpected symbolSet='EBCDIC'";
    QTest::newRow("second allowed ignored")
        << "<AllowedCharacters>ab</AllowedCharacters><AllowedCharacters>cd</AllowedCharacters>"
        << "[ab]*"
        << "Warning: ignoring excessive 'AllowedCharacters' element";
    QTest::newRow("second unallowed ignored")
        << "<UnAllowedCharacters>a</UnAllowedCharacters><UnAllowedCharacters>b"
           "</UnAllowedCharacters>"
        << "[^a]*"
        << "Warning: ignoring excessive 'UnAllowedCharacters' element";
    QTest::newRow("empty allowed keeps no pattern")
        << "<AllowedCharacters/>" << QString() << QString();
}

void TestEditValidator::characterSets()
{
    QFETCH(QString, declarations);
    QFETCH(QString, pattern);
    QFETCH(QString, warning);
    StderrCapture capture;
    const auto parser = SpecText::read(
        QStringLiteral("<E TYPE=\"EDITBOX\" CURRENT=\"v\">%1</E>").arg(declarations));
    const QByteArray log = capture.text();
    QCOMPARE(read(*parser)->validationPattern(), pattern);
    if (!warning.isEmpty())
        QVERIFY2(log.contains(warning.toUtf8()), log.constData());
}

void TestEditValidator::asciiWithoutQuote()
{
    const auto parser = SpecText::read(
        "<E TYPE=\"DIALEDITBOX\" CURRENT='say \"hi\"'><AllowedCharacters SymbolSet=\"ASCII\"/>"
        "<UnAllowedCharacters>\"</UnAllowedCharacters></E>");
    ConcreteElement* e = read(*parser);
    QString expected = EditValidator::printableAscii();
    expected.remove(QLatin1Char('"'));
    QCOMPARE(EditValidator::printableAscii().size(), 95);
    QCOMPARE(e->validationPattern(),
             QStringLiteral("[%1]*").arg(EditValidator::escapeSpecialChars(expected)));
    QVERIFY(e->validationPattern().contains("\\\\\\]\\^_"));
    QCOMPARE(e->current(), QString(""));
    e->valueChange("~ [a-b] ^ \\ ok");
    QVERIFY(e->isValid());
    e->valueChange("tab\there");
    QVERIFY(!e->isValid());
}

void TestEditValidator::escapeSpecialChars_data()
{
    QTest::addColumn<QString>("charset");
    QTest::addColumn<QString>("escaped");
    QTest::newRow("plain") << "abc"
                           << "abc";
    QTest::newRow("all five") << "\\[]^-"
                              << "\\\\\\[\\]\\^\\-";
    QTest::newRow("repeated") << "a-b-c"
                              << "a\\-b\\-c";
    QTest::newRow("others untouched") << ".*+?()$"
                                      << ".*+?()$";
}

void TestEditValidator::escapeSpecialChars()
{
    QFETCH(QString, charset);
    QFETCH(QString, escaped);
    QCOMPARE(EditValidator::escapeSpecialChars(charset), escaped);
}

void TestEditValidator::addressPatterns_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("valid");
    QTest::newRow("ip") << "IPADDRESS"
                        << "192.168.1.10" << true;
    QTest::newRow("ip empty") << "IPADDRESS"
                              << "" << true;
    QTest::newRow("ip leading zero") << "IPADDRESS"
                                     << "010.0.0.1" << true;
    QTest::newRow("ip empty parts") << "IPADDRESS"
                                    << "1..2." << true;
    QTest::newRow("ip 256") << "IPADDRESS"
                            << "256.1.1.1" << false;
    QTest::newRow("ip three parts") << "IPADDRESS"
                                    << "1.1.1" << false;
    QTest::newRow("ip letters") << "IPADDRESS"
                                << "a.b.c.d" << false;
    QTest::newRow("mask") << "SUBNETMASK"
                          << "255.255.255.0" << true;
    QTest::newRow("mask 252") << "SUBNETMASK"
                              << "255.255.252.0" << true;
    QTest::newRow("mask lone 255") << "SUBNETMASK"
                                   << "255" << true;
    QTest::newRow("mask not contiguous") << "SUBNETMASK"
                                         << "255.255.0.255" << false;
    QTest::newRow("mask 253") << "SUBNETMASK"
                              << "255.255.253.0" << false;
    QTest::newRow("mask empty") << "SUBNETMASK"
                                << "" << false;
}

void TestEditValidator::addressPatterns()
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QFETCH(bool, valid);
    const auto parser = SpecText::read(QStringLiteral("<E TYPE=\"%1\"/>").arg(type));
    ConcreteElement* e = read(*parser);
    e->valueChange(value);
    QCOMPARE(e->isValid(), valid);
    // The device's value is never emptied for these kinds.
    QVERIFY(e->initial().isNull());
}

QTEST_MAIN(TestEditValidator)
#include "TestEditValidator.moc"
