#include "../xml/SpecText.h"
#include "ReceiverProbe.h"

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

const char* const kForm =
    "<F TYPE='POPUP' STRING='Network' DEFAULT='TRUE'>"
    "<A TYPE='EDITBOX' STRING='Host' CURRENT='a' FACTORY='f'/>"
    "<B TYPE='IPADDRESS' STRING='Address' CURRENT='1.2.3.4' FACTORY='0.0.0.0'/>"
    "<C TYPE='INTEGER' MAX='9' CURRENT='2'/><T TYPE='STATICTEXT' CURRENT='t'/></F>";

// The form of kForm read, its signals reaching `receiver`.
struct Form
{
    std::unique_ptr<SettingsParser> parser = SpecText::read(kForm);
    ApplyReceiver receiver;
    FormElement* form = qobject_cast<FormElement*>(parser->findElement("F"));

    Form() { parser->root()->connectSignals(&receiver); }
    QString value(const char* id, const char* which = "current") const
    {
        return parser->findElement(id)->property(which).toString();
    }
    // Opens the form and runs steps inside its modal loop once it is shown.
    void run(const std::function<void(PopupForm*)>& steps)
    {
        QTimer::singleShot(0, form, [this, steps] {
            QVERIFY(form->form());
            steps(form->form());
            // Whatever the steps left open is closed, so the test never hangs.
            if (form->form() && form->form()->isVisible())
                form->form()->reject();
        });
        form->showForm();
    }
};

QLineEdit* editor(PopupForm* popup, int index)
{
    return popup->controlPanel()->findChildren<QLineEdit*>().value(index);
}

} // namespace

// Buttons and popup forms: what they read, where their signals go, and the form opened
// modally from its button with Apply, Close, Printer Default and a refused Apply.
class TestButtonElement : public QObject
{
    Q_OBJECT

private slots:
    void buttonReachesItsSlot_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("call");
        QTest::newRow("plain, label") << "<K TYPE='BUTTON' STRING='Test' BUTTONLABEL='Print'/>"
                                      << QString("&Print") << "elementChanged:K";
        QTest::newRow("ampersand kept")
            << "<K TYPE='BUTTON' BUTTONLABEL='&amp;Go'/>" << QString("&&&Go") << "elementChanged:K";
        QTest::newRow("phone book, title") << "<K TYPE='PHONEBOOK' STRING='Phone book'/>"
                                           << QString("&Phone book") << "phoneBookClicked:K";
        const QString k = "&K";
        QTest::newRow("e-mail book") << "<K TYPE='EMAILBOOK'/>" << k << "emailBookClicked:K";
        QTest::newRow("address book")
            << "<K TYPE='USERBASEDADDRESSBOOK'/>" << k << "addressBookClicked:K";
        QTest::newRow("wireless") << "<K TYPE='WIRELESSSETTING'/>" << k << "wirelessSetupClicked:K";
        QTest::newRow("test page")
            << "<K TYPE='BUTTON_TESTPAGE_HP_INK'/>" << k << "inkTestPagePrintClicked:K";
        QTest::newRow("clean") << "<K TYPE='CARTRIDGE_CLEAN_HP_INK_XML'/>" << k
                               << "inkCartridgeCleanClicked:K";
        QTest::newRow("align SFP")
            << "<K TYPE='CARTRIDGE_ALIGN_HP_INK_SFP'/>" << k << "inkCartridgeAlignSFPClicked:K";
        QTest::newRow("align MFP")
            << "<K TYPE='CARTRIDGE_ALIGN_HP_INK_MFP_XML'/>" << k << "inkCartridgeAlignMFPClicked:K";
    }
    void buttonReachesItsSlot()
    {
        QFETCH(QString, setting);
        QFETCH(QString, text);
        QFETCH(QString, call);
        const auto parser = SpecText::read(setting);
        Element* element = parser->findElement(call.section(':', 1));
        ReceiverProbe probe;
        parser->root()->connectSignals(&probe);
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

    void photoInkFlag()
    {
        const auto parser = SpecText::read(
            "<P TYPE='CARTRIDGE_ALIGN_HP_INK_SFP' PhotoInkCartridgeInstall='TRUE'/>"
            "<Q TYPE='CARTRIDGE_ALIGN_HP_INK_SFP_XML' PhotoInkCartridgeInstall='true'/>");
        QVERIFY(parser->findElement("P")->property("hasPhotoInk").toBool());
        QVERIFY(!parser->findElement("Q")->property("hasPhotoInk").toBool());
    }

    void formButtonOpensForm_data()
    {
        QTest::addColumn<QString>("attribute");
        QTest::addColumn<bool>("defaultShown");
        QTest::newRow("DEFAULT TRUE") << " DEFAULT='TRUE'" << true;
        QTest::newRow("DEFAULT missing") << "" << false;
        QTest::newRow("DEFAULT true") << " DEFAULT='true'" << false;
    }
    void formButtonOpensForm()
    {
        QFETCH(QString, attribute);
        QFETCH(bool, defaultShown);
        const auto parser = SpecText::read(
            QString("<F TYPE='POPUP' STRING='Fax'%1><A TYPE='EDITBOX'/></F>").arg(attribute));
        auto* form = qobject_cast<FormElement*>(parser->findElement("F"));
        QCOMPARE(form->isDefault(), defaultShown);
        QWidget panel;
        form->createControl(&panel);
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
    }

    void closeRestoresValues()
    {
        Form f;
        f.run([](PopupForm* popup) {
            QTest::keyClicks(editor(popup, 0), "bc");
            QVERIFY(popup->btnOK->isEnabled());
            QTest::mouseClick(popup->btnCancel, Qt::LeftButton);
        });
        QCOMPARE(f.value("A"), QString("a"));
        QCOMPARE(f.receiver.applies, 0);
        // The dialog heard the edit and the restore.
        const qsizetype edited = f.receiver.calls.indexOf("elementChanged:abc");
        QVERIFY(edited >= 0);
        QVERIFY(f.receiver.calls.indexOf("elementChanged:a", edited) > edited);
    }

    void refusedApplyKeepsFormOpen()
    {
        Form f;
        f.receiver.refuse = true;
        bool closed = false;
        f.run([&](PopupForm* popup) {
            QTest::keyClicks(editor(popup, 0), "x");
            QTest::mouseClick(popup->btnOK, Qt::LeftButton);
            QVERIFY(popup->isVisible());
            QVERIFY(popup->btnOK->isEnabled());
            QCOMPARE(f.value("A", "initial"), QString("a"));
            QCOMPARE(editor(popup, 0)->text(), QString("ax"));
            // The next try reaches the printer.
            f.receiver.refuse = false;
            QTest::mouseClick(popup->btnOK, Qt::LeftButton);
            closed = !popup->isVisible();
        });
        QVERIFY(closed);
        QCOMPARE(f.receiver.applies, 2);
        QCOMPARE(f.value("A"), QString("ax"));
        QCOMPARE(f.value("A", "initial"), QString("ax"));
    }

    void printerDefault()
    {
        Form f;
        f.run([&](PopupForm* popup) {
            QTest::mouseClick(popup->btnDefault, Qt::LeftButton);
            QCOMPARE(editor(popup, 0)->text(), QString("f"));
            QCOMPARE(editor(popup, 1)->text(), QString("0.0.0.0"));
            QCOMPARE(f.value("A"), QString("f"));
            QVERIFY(popup->btnOK->isEnabled());
            QTest::mouseClick(popup->btnOK, Qt::LeftButton);
        });
        QCOMPARE(f.value("B") + f.value("B", "initial"), QString("0.0.0.00.0.0.0"));
        // Without FACTORY there is no default to go back to.
        QCOMPARE(f.value("C") + f.value("T"), QString("2t"));
        // One change each, no echo from the controls being set.
        QCOMPARE(f.receiver.calls.count(QString("elementChanged:f")), 1);
    }
};

QTEST_MAIN(TestButtonElement)
#include "TestButtonElement.moc"
