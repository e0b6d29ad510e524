#include "../xml/SpecText.h"
#include "ReceiverProbe.h"
#include "Rows.h"

#include "elements/FormElement.h"
#include "ui/PopupForm.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

namespace {

// A form read with `flag` for its DEFAULT attribute, its signals reaching `receiver`.
struct Form
{
    std::unique_ptr<SettingsParser> parser;
    ReceiverProbe receiver;
    FormElement* form;

    explicit Form(const QString& flag = "TRUE")
        : parser(SpecText::read(
              "<F TYPE='POPUP' STRING='Network' DEFAULT='" + flag +
              "'><A TYPE='EDITBOX' CURRENT='a' FACTORY='f'/><B TYPE='IPADDRESS' CURRENT='1.2.3.4' "
              "FACTORY='0.0.0.0'/><C TYPE='INTEGER' MAX='9' CURRENT='2'/></F>"))
        , form(qobject_cast<FormElement*>(parser->findElement("F")))
    {
        parser->root()->connectSignals(&receiver);
    }
    QString value(const char* id, const char* which = "current") const
    {
        return parser->findElement(id)->property(which).toString();
    }
    // Runs steps inside the form's modal loop once it is shown by `open`.
    void run(const std::function<void(PopupForm*)>& steps,
             const std::function<void()>& open = nullptr)
    {
        QTimer::singleShot(0, form, [this, steps] {
            QVERIFY(form->form() && form->form()->isModal() && form->form()->isVisible());
            steps(form->form());
            // Whatever the steps left open is closed, so the test never hangs.
            if (form->form() && form->form()->isVisible())
                form->form()->reject();
        });
        open ? open() : form->showForm();
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
        // caption|button text: the caption names a label
        columns<QString, QString, QString>({"setting", "shown", "call"});
        const char* rows[][3] = {
            {"BUTTON' STRING='Test' BUTTONLABEL='Print", "Test|&Print", "elementChanged"},
            {"BUTTON' BUTTONLABEL='&amp;Go", "K|&&&Go", "elementChanged"},
            {"PHONEBOOK' STRING='Phone book", "|&Phone book", "phoneBookClicked"},
            {"EMAILBOOK", "|&K", "emailBookClicked"},
            {"USERBASEDADDRESSBOOK", "|&K", "addressBookClicked"},
            {"WIRELESSSETTING", "|&K", "wirelessSetupClicked"},
            {"BUTTON_TESTPAGE_HP_INK", "|&K", "inkTestPagePrintClicked"},
            {"CARTRIDGE_CLEAN_HP_INK_XML", "|&K", "inkCartridgeCleanClicked"},
            {"CARTRIDGE_ALIGN_HP_INK_SFP", "|&K", "inkCartridgeAlignSFPClicked"},
            {"CARTRIDGE_ALIGN_HP_INK_MFP_XML", "|&K", "inkCartridgeAlignMFPClicked"},
        };
        for (const auto& r : rows)
            QTest::newRow(r[0]) << QString(r[0]) << QString(r[1]) << QString(r[2]) + ":K";
    }
    void buttonReachesItsSlot()
    {
        const auto [setting, shown, call] = texts<3>();
        const auto parser = SpecText::read("<K TYPE='" + setting + "'/>");
        Element* element = parser->findElement("K");
        ReceiverProbe probe;
        QWidget panel;
        QVERIFY(wireTwiceAndRecreate(parser->root(), probe, element, panel));
        auto* button = qobject_cast<QPushButton*>(element->control());
        QCOMPARE(panel.findChild<QLabel*>("label")->text() + '|' + button->text(), shown);
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

    // Apply stays disabled until something changes; Printer Default shows for DEFAULT='TRUE'.
    void formButtonOpensForm_data()
    {
        QTest::addColumn<QString>("flag");
        QTest::newRow("DEFAULT TRUE") << "TRUE";
        QTest::newRow("DEFAULT true") << "true";
    }
    void formButtonOpensForm()
    {
        QFETCH(QString, flag);
        Form f(flag);
        QWidget panel;
        f.form->createControl(&panel);
        auto* button = qobject_cast<QPushButton*>(f.form->control());
        QCOMPARE(button->text(), QString("&Network..."));
        panel.show();
        f.run(
            [&](PopupForm* popup) {
                QCOMPARE(popup->windowTitle(), QString("Network"));
                QCOMPARE(popup->btnDefault->isVisible(), flag == "TRUE");
                QVERIFY(!popup->btnOK->isEnabled());
                QTest::keyClicks(editor(popup, 0), "b");
                QVERIFY(popup->btnOK->isEnabled());
                // Close asks about the edit; Discard drops it.
                QTimer::singleShot(0, [] {
                    QApplication::activeModalWidget()
                        ->findChild<QAbstractButton*>("pendingDiscard")
                        ->click();
                });
                QTest::mouseClick(popup->btnCancel, Qt::LeftButton);
            },
            [button] { QTest::mouseClick(button, Qt::LeftButton); });
        // Close puts the values back, and the dialog hears the edit and the restore.
        QVERIFY(!f.form->form());
        QVERIFY(!f.parser->findElement("A")->control());
        QCOMPARE(f.value("A"), QString("a"));
        QVERIFY(!f.receiver.calls.contains("popupApplyClicked:"));
        const qsizetype edited = f.receiver.calls.indexOf("elementChanged:ab");
        QVERIFY(edited >= 0);
        QVERIFY(f.receiver.calls.indexOf("elementChanged:a", edited) > edited);
    }

    void refusedApplyKeepsFormOpen()
    {
        Form f;
        f.receiver.refuseApply = true;
        bool closed = false;
        f.run([&](PopupForm* popup) {
            QTest::keyClicks(editor(popup, 0), "x");
            QTest::mouseClick(popup->btnOK, Qt::LeftButton);
            QVERIFY(popup->isVisible() && popup->btnOK->isEnabled());
            QCOMPARE(f.value("A", "initial"), QString("a"));
            QCOMPARE(editor(popup, 0)->text(), QString("ax"));
            // The next try reaches the printer.
            f.receiver.refuseApply = false;
            QTest::mouseClick(popup->btnOK, Qt::LeftButton);
            closed = !popup->isVisible();
        });
        QVERIFY(closed);
        QCOMPARE(int(f.receiver.calls.count(QString("popupApplyClicked:"))), 2);
        QCOMPARE(f.value("A") + f.value("A", "initial"), QString("axax"));
    }

    void printerDefault()
    {
        Form f;
        f.run([&](PopupForm* popup) {
            QTest::mouseClick(popup->btnDefault, Qt::LeftButton);
            QCOMPARE(editor(popup, 0)->text() + editor(popup, 1)->text(), QString("f0.0.0.0"));
            QVERIFY(popup->btnOK->isEnabled());
            QTest::mouseClick(popup->btnOK, Qt::LeftButton);
        });
        QCOMPARE(f.value("B") + f.value("B", "initial"), QString("0.0.0.00.0.0.0"));
        // Without FACTORY there is no default to go back to.
        QCOMPARE(f.value("C"), QString("2"));
        // One change each, no echo from the controls being set.
        QCOMPARE(f.receiver.calls.count(QString("elementChanged:f")), 1);
    }
};

QTEST_MAIN(TestButtonElement)
#include "TestButtonElement.moc"
