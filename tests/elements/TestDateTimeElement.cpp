#include "../xml/SpecText.h"

#include "DateTimeElement.h"

#include <QDateTimeEdit>
#include <QSignalSpy>
#include <QtTest>

// The date-time value: fixed 24-hour text, shown with or without AM/PM.
class TestDateTimeElement : public QObject
{
    Q_OBJECT

private:
    static DateTimeElement* read(SettingsParser& parser)
    {
        return qobject_cast<DateTimeElement*>(parser.findElement("D"));
    }

private slots:
    void displayValue_data();
    void displayValue();
    void parseValue_data();
    void parseValue();
    void editorValueStoredAs24Hours();
    void formatSwitchesEditorAtOnce();
};

void TestDateTimeElement::displayValue_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("ampm");
    QTest::newRow("no format") << QString() << "2007-03-05 17:09" << false;
    QTest::newRow("AM/PM") << "yyyy-MM-dd hh:mm AM/PM"
                           << "2007-03-05 05:09 PM" << true;
    QTest::newRow("24 hours") << "dd.MM.yyyy hh:mm"
                              << "2007-03-05 17:09" << false;
    QTest::newRow("am/pm lower case") << "hh:mm am/pm"
                                      << "2007-03-05 17:09" << false;
}

void TestDateTimeElement::displayValue()
{
    QFETCH(QString, format);
    QFETCH(QString, shown);
    QFETCH(bool, ampm);
    const QString attribute =
        format.isNull() ? QString() : QStringLiteral(" FormatConstraint=\"%1\"").arg(format);
    const auto parser = SpecText::read(
        QStringLiteral("<D TYPE=\"DATETIME\" CURRENT=\"2007-03-05 17:09\"%1/>").arg(attribute));
    DateTimeElement* d = read(*parser);
    QCOMPARE(d->ampm(), ampm);
    QCOMPARE(d->format(), format);
    QCOMPARE(d->displayValue(), shown);
    QCOMPARE(d->current(), QString("2007-03-05 17:09"));
}

void TestDateTimeElement::parseValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDateTime>("parsed");
    QTest::newRow("well formed") << "2007-03-05 17:09"
                                 << QDateTime(QDate(2007, 3, 5), QTime(17, 9), Qt::UTC);
    QTest::newRow("separators not checked")
        << "2007/03/05T17.09" << QDateTime(QDate(2007, 3, 5), QTime(17, 9), Qt::UTC);
    QTest::newRow("malformed gives no valid date") << "2007/3/5" << QDateTime();
    QTest::newRow("empty") << "" << QDateTime();
}

void TestDateTimeElement::parseValue()
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

void TestDateTimeElement::editorValueStoredAs24Hours()
{
    const auto parser = SpecText::read("<DateTime TYPE=\"EDITBOX\" CURRENT=\"2007-03-05 17:09\" "
                                       "FormatConstraint=\"yyyy-MM-dd hh:mm AM/PM\"/>");
    auto* d = qobject_cast<DateTimeElement*>(parser->findElement("DateTime"));
    QVERIFY(d);
    auto* editor = new QDateTimeEdit(DateTimeElement::parseValue(d->current()));
    d->setControl(editor);
    connect(editor, SIGNAL(dateTimeChanged(QDateTime)), d, SLOT(valueChange(QDateTime)));
    QSignalSpy spy(d, &ConcreteElement::valueChanged);
    editor->setDateTime(QDateTime(QDate(2008, 12, 31), QTime(23, 45, 30), Qt::UTC));
    QCOMPARE(d->current(), QString("2008-12-31 23:45"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(d->displayValue(), QString("2008-12-31 11:45 PM"));
}

void TestDateTimeElement::formatSwitchesEditorAtOnce()
{
    const auto parser = SpecText::read("<D TYPE=\"DATETIME\" CURRENT=\"2007-03-05 17:09\" "
                                       "FormatConstraint=\"hh:mm AM/PM\"/>");
    DateTimeElement* d = read(*parser);
    auto* editor = new QDateTimeEdit(DateTimeElement::parseValue(d->current()));
    d->setControl(editor);
    d->setFormat("hh:mm");
    QVERIFY(!d->ampm());
    QVERIFY(!editor->displayFormat().contains("AP"));
    QCOMPARE(d->displayValue(), QString("2007-03-05 17:09"));
    QVERIFY(d->setProperty("format", "yyyy hh:mm AM/PM"));
    QVERIFY(d->ampm());
    QVERIFY(editor->displayFormat().endsWith("AP"));
    QVERIFY(editor->displayFormat().contains("ss"));
}

QTEST_MAIN(TestDateTimeElement)
#include "TestDateTimeElement.moc"
