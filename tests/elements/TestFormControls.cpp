#include "../xml/SpecText.h"
#include "ReceiverProbe.h"

#include "ButtonElement.h"
#include "FormElement.h"
#include "PopupForm.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

namespace {

// Stands for the settings dialog's popupApplyClicked(): counts the requests and, when told to,
// reports that the printer refused them, as the dialog does.
class ApplyReceiver : public ReceiverProbe
{
    Q_OBJECT

public:
    int applies = 0;
    bool refuse = false;

public slots:
    void popupApplyClicked()
    {
        ++applies;
        if (refuse)
            QMetaObject::invokeMethod(sender(), "setApplyRefused");
    }
};

} // namespace

// The popup form (opened modally from its button, Apply, Close, Printer Default, a refused
// Apply) and the push buttons of the button kinds.
class TestFormControls : public QObject
{
    Q_OBJECT

private:
    static constexpr const char* kForm =
        "<F TYPE=\"POPUP\" STRING=\"Network\" DEFAULT=\"TRUE\">"
        "<A TYPE=\"EDITBOX\" STRING=\"Host\" CURRENT=\"a\" FACTORY=\"f\"/>"
        "<B TYPE=\"IPADDRESS\" STRING=\"Address\" CURRENT=\"1.2.3.4\" FACTORY=\"0.0.0.0\"/>"
        "</F>";

    // Opens the form and runs steps inside its modal loop once it is shown.
    static void runForm(FormElement* form, const std::function<void(PopupForm*)>& steps)
    {
        QTimer::singleShot(0, form, [form, steps] {
            QVERIFY(form->form());
            steps(form->form());
            // Whatever the steps left open is closed, so the test never hangs.
            if (form->form() && form->form()->isVisible())
                form->form()->reject();
        });
        form->showForm();
    }
    static QLineEdit* editor(PopupForm* popup, int index)
    {
        return popup->controlPanel()->findChildren<QLineEdit*>().value(index);
    }
    static QString current(SettingsParser& parser, const char* id)
    {
        return parser.findElement(id)->property("current").toString();
    }
    static QString initial(SettingsParser& parser, const char* id)
    {
        return parser.findElement(id)->property("initial").toString();
    }

private slots:
    void formButtonOpensForm_data();
    void formButtonOpensForm();
    void closeRestoresValues();
    void applyAcceptsValues();
    void refusedApplyKeepsFormOpen();
    void printerDefault();
    void buttonControl_data();
    void buttonControl();
};

void TestFormControls::formButtonOpensForm_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<bool>("defaultShown");
    QTest::newRow("DEFAULT TRUE") << " DEFAULT=\"TRUE\"" << true;
    QTest::newRow("DEFAULT missing") << "" << false;
    QTest::newRow("DEFAULT true") << " DEFAULT=\"true\"" << false;
}

void TestFormControls::formButtonOpensForm()
{
    QFETCH(QString, attribute);
    QFETCH(bool, defaultShown);
    const auto parser = SpecText::read(
        QStringLiteral("<F TYPE=\"POPUP\" STRING=\"Fax\"%1><A TYPE=\"EDITBOX\"/></F>")
            .arg(attribute));
    auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
    QWidget panel;
    QWidget* box = form->createControl(&panel);
    auto* button = qobject_cast<QPushButton*>(form->control());
    QCOMPARE(button->text(), QString("&Fax..."));
    QCOMPARE(button->accessibleName(), QString("Fax"));
    panel.show();
    bool checked = false;
    QTimer::singleShot(0, form, [&] {
        PopupForm* popup = form->form();
        QVERIFY(popup && popup->isModal() && popup->isVisible());
        QCOMPARE(popup->windowTitle(), QString("Fax"));
        QCOMPARE(popup->btnOK->text(), QString("Apply"));
        QCOMPARE(popup->btnCancel->text(), QString("Close"));
        QCOMPARE(popup->btnDefault->text(), QString("Printer Default"));
        QCOMPARE(popup->btnDefault->isVisible(), defaultShown);
        QVERIFY(!popup->btnOK->isEnabled());
        QVERIFY(editor(popup, 0));
        checked = true;
        QTest::mouseClick(popup->btnCancel, Qt::LeftButton);
    });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(checked);
    QVERIFY(!form->form());
    QVERIFY(!parser->findElement("A")->control());
    form->deleteControl();
    QVERIFY(panel.findChildren<QWidget*>().isEmpty());
    Q_UNUSED(box);
}

void TestFormControls::closeRestoresValues()
{
    const auto parser = SpecText::read(kForm);
    auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
    ApplyReceiver receiver;
    parser->root()->connectSignals(&receiver);
    runForm(form, [](PopupForm* popup) {
        QTest::keyClicks(editor(popup, 0), "bc");
        QVERIFY(popup->btnOK->isEnabled());
        QTest::mouseClick(popup->btnCancel, Qt::LeftButton);
    });
    QCOMPARE(current(*parser, "A"), QString("a"));
    QCOMPARE(receiver.applies, 0);
    // The dialog heard the edit and the restore.
    const qsizetype edited = receiver.calls.indexOf("elementChanged:abc");
    QVERIFY(edited >= 0);
    QVERIFY(receiver.calls.indexOf("elementChanged:a", edited) > edited);
}

void TestFormControls::applyAcceptsValues()
{
    const auto parser = SpecText::read(kForm);
    auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
    ApplyReceiver receiver;
    parser->root()->connectSignals(&receiver);
    bool closed = false;
    runForm(form, [&closed](PopupForm* popup) {
        QTest::keyClicks(editor(popup, 0), "x");
        QTest::mouseClick(popup->btnOK, Qt::LeftButton);
        closed = !popup->isVisible();
    });
    QVERIFY(closed);
    QCOMPARE(receiver.applies, 1);
    QCOMPARE(current(*parser, "A"), QString("ax"));
    QCOMPARE(initial(*parser, "A"), QString("ax"));
}

void TestFormControls::refusedApplyKeepsFormOpen()
{
    const auto parser = SpecText::read(kForm);
    auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
    ApplyReceiver receiver;
    receiver.refuse = true;
    parser->root()->connectSignals(&receiver);
    runForm(form, [&](PopupForm* popup) {
        QTest::keyClicks(editor(popup, 0), "x");
        QTest::mouseClick(popup->btnOK, Qt::LeftButton);
        QVERIFY(popup->isVisible());
        QVERIFY(popup->btnOK->isEnabled());
        QCOMPARE(initial(*parser, "A"), QString("a"));
        QCOMPARE(editor(popup, 0)->text(), QString("ax"));
        // The next try reaches the printer.
        receiver.refuse = false;
        QTest::mouseClick(popup->btnOK, Qt::LeftButton);
        QVERIFY(!popup->isVisible());
    });
    QCOMPARE(receiver.applies, 2);
    QCOMPARE(initial(*parser, "A"), QString("ax"));
}

void TestFormControls::printerDefault()
{
    const auto parser = SpecText::read(kForm);
    auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
    ApplyReceiver receiver;
    parser->root()->connectSignals(&receiver);
    runForm(form, [&](PopupForm* popup) {
        QTest::mouseClick(popup->btnDefault, Qt::LeftButton);
        QCOMPARE(editor(popup, 0)->text(), QString("f"));
        QCOMPARE(editor(popup, 1)->text(), QString("0.0.0.0"));
        QCOMPARE(current(*parser, "A"), QString("f"));
        QVERIFY(popup->btnOK->isEnabled());
        QTest::mouseClick(popup->btnOK, Qt::LeftButton);
    });
    QCOMPARE(current(*parser, "B"), QString("0.0.0.0"));
    QCOMPARE(initial(*parser, "B"), QString("0.0.0.0"));
    // One change each, no echo from the controls being set.
    QCOMPARE(receiver.calls.count(QString("elementChanged:f")), 1);
}

void TestFormControls::buttonControl_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("call");
    QTest::newRow("plain, label") << "<K TYPE=\"BUTTON\" STRING=\"Test\" BUTTONLABEL=\"Print\"/>"
                                  << "&Print"
                                  << "elementChanged:K";
    QTest::newRow("phone book, title") << "<K TYPE=\"PHONEBOOK\" STRING=\"Phone book\"/>"
                                       << "&Phone book"
                                       << "phoneBookClicked:K";
    QTest::newRow("align MFP") << "<K TYPE=\"CARTRIDGE_ALIGN_HP_INK_MFP_XML\"/>"
                               << "&K"
                               << "inkCartridgeAlignMFPClicked:K";
    QTest::newRow("ampersand kept") << "<K TYPE=\"BUTTON\" BUTTONLABEL=\"&amp;Go\"/>"
                                    << "&&&Go"
                                    << "elementChanged:K";
}

void TestFormControls::buttonControl()
{
    QFETCH(QString, setting);
    QFETCH(QString, text);
    QFETCH(QString, call);
    const auto parser = SpecText::read(setting);
    Element* element = parser->findElement("K");
    ReceiverProbe probe;
    parser->root()->connectSignals(&probe);
    QWidget panel;
    for (int i = 0; i < 2; ++i) {
        element->createControl(&panel);
        element->deleteControl();
    }
    QVERIFY(panel.findChildren<QWidget*>().isEmpty());
    element->createControl(&panel);
    auto* button = qobject_cast<QPushButton*>(element->control());
    QCOMPARE(button->text(), text);
    panel.show();
    QTest::mouseClick(button, Qt::LeftButton);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(probe.calls, QStringList({call, call}));
}

QTEST_MAIN(TestFormControls)
#include "TestFormControls.moc"
