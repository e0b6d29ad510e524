#include "../app/StderrCapture.h"
#include "../elements/Rows.h"
#include "ModalWatcher.h"
#include "VirtualPrinterProcess.h"
#include "app/Configurator.h"
#include "app/Log.h"
#include "elements/ButtonElement.h"
#include "elements/ConcreteElement.h"
#include "elements/FormElement.h"
#include "ui/ChangeReview.h"
#include "ui/DialogMemory.h"
#include "ui/HelpViewer.h"
#include "ui/PopupForm.h"
#include "ui/SettingsDialog.h"
#include "ui/SettingsViewItem.h"
#include "ui/StartupError.h"
#include "xml/BackupDocument.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidgetItemIterator>

namespace {

// %1 stands for extra settings a test adds to the General group.
const char kSpecification[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<root><PrinterSettingsInfo STRING="Printer Settings"><General STRING="General">
<SleepTimer TYPE="INTEGER" STRING="Sleep timer" CURRENT="5" FACTORY="15" MIN="1" MAX="240"/>
<Location TYPE="EDITBOX" STRING="Location" CURRENT="Lab" FACTORY="Office"/>%1</General>
<Network STRING="Network"><HostName TYPE="EDITBOX" STRING="Host name" CURRENT="printer"
 FACTORY="laser-1"/></Network><Service STRING="Service">
<TestPage TYPE="BUTTON" STRING="Test page" BUTTONLABEL="Print"/></Service>
</PrinterSettingsInfo></root>)";

const char kForm[] = "<Net TYPE='POPUP' STRING='Network'><Server TYPE='EDITBOX' STRING='Server' "
                     "CURRENT='a'/><Ip TYPE='IPADDRESS' STRING='Address' CURRENT='%1'/></Net>";

ConcreteElement* valueElement(Configurator& c, const char* id)
{
    return qobject_cast<ConcreteElement*>(c.rootElement()->findElement(QString::fromLatin1(id)));
}

void click(QWidget* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

// Makes `id` the dialog's current row and gives the control it shows.
QWidget* show(SettingsDialog& dialog, const char* id)
{
    SettingsViewItem* item = dialog.findParamItem(QString::fromLatin1(id));
    dialog.paramList->setCurrentItem(item);
    return item->element()->control();
}

// The ids of the setting rows the tree shows, in order.
QString shownRows(const SettingsDialog& dialog)
{
    QStringList ids;
    for (QTreeWidgetItemIterator it(dialog.paramList, QTreeWidgetItemIterator::NoChildren); *it;
         ++it) {
        bool shown = true;
        for (const QTreeWidgetItem* row = *it; row; row = row->parent())
            shown = shown && !row->isHidden();
        if (shown)
            ids << static_cast<SettingsViewItem*>(*it)->element()->id();
    }
    return ids.join(' ');
}

} // namespace

class TestSettingsDialog : public QObject
{
    Q_OBJECT

    // Lists the rows of the review that Apply opens next, then presses `button` in it.
    static void answerReview(const char* button, bool dontAsk, QStringList* rows)
    {
        QTimer::singleShot(0, [rows, button, dontAsk] {
            QWidget* review = QApplication::activeModalWidget();
            for (const auto* list : review->findChildren<QTreeWidget*>()) {
                for (int i = 0; i < list->topLevelItemCount(); ++i) {
                    const QTreeWidgetItem* row = list->topLevelItem(i);
                    *rows << list->objectName() + ':' + row->text(0) + '|' + row->text(1) + '|' +
                                 row->text(2);
                }
            }
            if (dontAsk)
                QTest::keyClick(review->findChild<QCheckBox*>("dontAsk"), Qt::Key_Space);
            click(review->findChild<QPushButton*>(button));
        });
    }

    // Names `path` in the file dialog that opens next.
    static void chooseFile(const QString& path)
    {
        QTimer::singleShot(0, [path] {
            QWidget* chooser = QApplication::activeModalWidget();
            auto* name = chooser->findChild<QLineEdit*>("fileNameEdit");
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
        });
    }

    // A program folder holding the specification as ./tav.xml, and a virtual printer
    // serving the same document for Apply.
    struct Setup
    {
        QTemporaryDir dir;
        QString bin = dir.filePath("bin");
        std::unique_ptr<VirtualPrinterProcess> printer;
        std::unique_ptr<Configurator> configurator;
        ModalWatcher boxes;
        SettingsDialog dialog;

        explicit Setup(const QString& extra = QString(), const QStringList& faults = {},
                       bool reachable = true)
        {
            QDir().mkpath(bin);
            QFile file(bin + "/tav.xml");
            file.open(QIODevice::WriteOnly);
            file.write(QString::fromUtf8(kSpecification).arg(extra).toUtf8());
            file.close();
            printer = std::make_unique<VirtualPrinterProcess>(file.fileName(), dir.path(), faults);
            configurator = std::make_unique<Configurator>(
                bin, reachable ? printer->link : dir.filePath("no-such-device"), "Test Laser", true,
                true, false, false);
            configurator->getPrinterSettings();
            dialog.initialize(configurator.get(), "Test Laser");
            dialog.show();
        }
        QString row(const char* id)
        {
            SettingsViewItem* item = dialog.findParamItem(QString::fromLatin1(id));
            return item ? item->text(1) : QString("<no row>");
        }
        ConcreteElement* setting(const char* id) { return valueElement(*configurator, id); }
        Element* element(const char* id) const
        {
            return configurator->rootElement()->findElement(QString::fromLatin1(id));
        }
        QString current()
        {
            return static_cast<SettingsViewItem*>(dialog.paramList->currentItem())->element()->id();
        }
        QByteArray sent() const
        {
            QFile file(bin + "/tav_send(Test Laser).xml");
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        }
    };

    QTemporaryDir config;

private slots:
    void initTestCase() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path())); }
    // Every test starts from a dialog this user never resized or folded.
    // The review is tested on its own; elsewhere Apply sends at once.
    void init()
    {
        QSettings(DialogMemory::organisation(), DialogMemory::application()).clear();
        ChangeReview::setWanted(false);
    }

    void opensWithDeviceValues()
    {
        Setup s("<Owner TYPE='EDITBOX' STRING='Owner' CURRENT='not_allowed;'/>");
        QVERIFY(s.printer->isReady());
        QCOMPARE(s.row("SleepTimer") + '|' + s.row("Location"), QString("5|Lab"));
        QCOMPARE(s.dialog.favoriteList->topLevelItemCount(), 3);
        QCOMPARE(s.dialog.favoriteList->topLevelItem(1)->text(0), QString("Network"));
        QVERIFY(!s.dialog.applyBtn->isEnabled());
        // A value the setting's own pattern rejects is reported once, after the dialog shows.
        QTRY_COMPARE(s.boxes.seen, QStringList{"Error|The following settings cannot be validated "
                                               "and will have empty values:\n\nOwner (Owner)\n"});
    }

    void applySendsOnlyChanges()
    {
        Setup s;
        s.setting("SleepTimer")->valueChange("30");
        QCOMPARE(s.row("SleepTimer"), QString("30"));
        QVERIFY(s.dialog.applyBtn->isEnabled());
        click(s.dialog.applyBtn);
        QVERIFY2(s.boxes.seen.isEmpty(), qPrintable(s.boxes.seen.join("#")));
        QVERIFY(!s.dialog.applyBtn->isEnabled());
        QCOMPARE(s.setting("SleepTimer")->initial(), QString("30"));
        QVERIFY2(s.printer->stateText().contains("CURRENT=\"30\""),
                 s.printer->stateText().constData());
        QVERIFY2(s.sent().contains("<SleepTimer CURRENT=\"30\"/>"), s.sent().constData());
        QVERIFY(!s.sent().contains("Location"));
        // For a few seconds the line beside Apply says what went out.
        QCOMPARE(s.dialog.pendingLabel->text(), QString("1 setting sent to Test Laser"));
        QTRY_COMPARE_WITH_TIMEOUT(s.dialog.pendingLabel->text(), QString(), 10000);
    }

    void refusedOrUnreachableApplyKeepsChanges_data()
    {
        addRows({"fault"}, // of the virtual printer; "-": no device at all
                {{"refused", "--reject"}, {"no answer", "--mute"}, {"no device", "-"}});
    }
    void refusedOrUnreachableApplyKeepsChanges()
    {
        QFETCH(QString, fault);
        Setup s(QString(), fault == "-" ? QStringList() : QStringList{fault}, fault != "-");
        s.setting("SleepTimer")->valueChange("30");
        click(s.dialog.applyBtn);
        QCOMPARE(s.boxes.seen.size(), 1);
        QVERIFY2(s.boxes.seen.first().startsWith("Error|The printer did not accept the changes"),
                 qPrintable(s.boxes.seen.first()));
        QVERIFY2(s.boxes.seen.first().endsWith("\n\nNot sent:\nSleep timer"),
                 qPrintable(s.boxes.seen.first()));
        QVERIFY(s.dialog.applyBtn->isEnabled());
        QCOMPARE(s.setting("SleepTimer")->current() + s.setting("SleepTimer")->initial() + '|' +
                     s.row("SleepTimer"),
                 QString("305|30"));
    }

    void invalidValueBlocksApplyAndLeadsToIt()
    {
        Setup s("<PrintServer TYPE='IPADDRESS' STRING='Print server' CURRENT='300.1.1.1'/>");
        show(s.dialog, "HostName");
        s.setting("SleepTimer")->valueChange("30");
        click(s.dialog.applyBtn);
        QCOMPARE(s.boxes.seen, QStringList{"Error|The '300.1.1.1' is not a valid entry for "
                                           "'Print server'.\nPlease specify another value"});
        QCOMPARE(s.current(), QString("PrintServer"));
        QVERIFY(s.sent().isEmpty());
        QVERIFY(!s.printer->stateText().contains("CURRENT=\"30\""));
    }

    // A value emptied at load goes to the device only when the user confirms clearing it:
    // Cancel sends nothing, Clear sends it with the other changes.
    void emptiedValueIsClearedOnlyWhenConfirmed()
    {
        Setup s("<Dept TYPE='EDITBOX' STRING='Department' CURRENT='Sales_2F'/>");
        QTRY_COMPARE(s.boxes.seen.value(0).section("\n\n", 1), QString("Department (Dept)\n"));
        s.setting("SleepTimer")->valueChange("30");
        QStringList asked;
        QTimer answer;
        const char* button = "cancelBtn";
        connect(&answer, &QTimer::timeout, this, [&asked, &button] {
            QWidget* question = QApplication::activeModalWidget();
            if (!question || question->objectName() != "ClearingQuestion" || !question->isVisible())
                return;
            asked.append(question->findChild<QLabel*>("settingsLabel")->text());
            click(question->findChild<QPushButton*>(button));
        });
        answer.start(20);
        click(s.dialog.applyBtn);
        QCOMPARE(asked, QStringList{"Department (Dept)"});
        QVERIFY(s.sent().isEmpty());
        QVERIFY(s.dialog.applyBtn->isEnabled());
        button = "clearBtn";
        click(s.dialog.applyBtn);
        QCOMPARE(asked.size(), 2);
        QVERIFY2(s.sent().contains("<Dept CURRENT=\"\"/>") && s.sent().contains("30"),
                 s.sent().constData());
    }

    void popupFormIsAppliedAlone()
    {
        Setup s(QString(kForm).arg("1.2.3.4"));
        s.setting("SleepTimer")->valueChange("30");
        auto* net = qobject_cast<FormElement*>(s.element("Net"));
        auto* button = qobject_cast<QPushButton*>(show(s.dialog, "Net"));
        QVERIFY(button);
        QTimer::singleShot(0, net, [net] {
            PopupForm* popup = net->form();
            QVERIFY(popup);
            auto* address = popup->controlPanel()->findChildren<QLineEdit*>().value(1);
            QVERIFY(address);
            address->selectAll();
            QTest::keyClicks(address, "10.0.0.9");
            click(popup->findChild<QPushButton*>("btnOK"));
            if (net->form())
                net->form()->reject();
        });
        click(button);
        // The form goes to the device by itself; the change outside it stays pending.
        QVERIFY2(s.sent().contains("<Ip CURRENT=\"10.0.0.9\"/>"), s.sent().constData());
        QVERIFY(!s.sent().contains("SleepTimer"));
        QVERIFY(s.printer->stateText().contains("10.0.0.9"));
        QVERIFY(s.dialog.applyBtn->isEnabled());
    }

    void invalidValueInFormOpensTheForm()
    {
        Setup s(QString(kForm).arg("300.1.1.1"));
        s.setting("SleepTimer")->valueChange("30");
        auto* net = qobject_cast<FormElement*>(s.element("Net"));
        // The warning comes first (the watcher answers it), then the form opens modally.
        bool opened = false;
        QTimer closer;
        connect(&closer, &QTimer::timeout, net, [net, &opened] {
            if (net->form() && net->form()->isVisible()) {
                opened = true;
                net->form()->reject();
            }
        });
        closer.start(20);
        click(s.dialog.applyBtn);
        QTRY_VERIFY(opened);
        QCOMPARE(s.boxes.seen.value(0).section('|', 0, 0), QString("Error"));
        QVERIFY(s.sent().isEmpty());
    }

    // A form's own Apply warns of an invalid value as the dialog's does, and sends nothing.
    void invalidValueWarnsAtTheFormsApply()
    {
        Setup s(QString(kForm).arg("300.1.1.1"));
        auto* net = qobject_cast<FormElement*>(s.element("Net"));
        bool stayedOpen = false;
        QTimer::singleShot(0, net, [net, &stayedOpen] {
            QTest::keyClicks(net->form()->controlPanel()->findChild<QLineEdit*>(), "b");
            click(net->form()->findChild<QPushButton*>("btnOK"));
            stayedOpen = net->form();
            if (net->form())
                net->form()->done(QDialog::Rejected);
        });
        click(show(s.dialog, "Net"));
        QVERIFY(stayedOpen);
        QCOMPARE(s.boxes.seen.value(s.boxes.seen.size() - 1),
                 QString("Error|The '300.1.1.1' is not a valid entry for 'Address'.\n"
                         "Please specify another value"));
        QVERIFY(s.sent().isEmpty());
    }

    // Description and what a field accepts reach its row's and its control's tooltip; device
    // text is never read as markup.
    void helpInPlace_data()
    {
        addRows({"setting", "id", "description", "help", "placeholder"},
                {{"range and step",
                  "<Pause TYPE='INTEGER' STRING='Pause' CURRENT='5' MIN='0' MAX='60' STEP='5'/>",
                  "Pause", "Minutes before sleep.", "Minutes before sleep.\n0 – 60, step 5", ""},
                 {"decimal as the device writes it",
                  "<Gamma TYPE='FLOAT' STRING='Gamma' CURRENT='1.5' MIN='0.50' MAX='2.5' "
                  "STEP='0.1' DIGITS='2'/>",
                  "Gamma", "", "0.50 – 2.5, step 0.1", ""},
                 {"restricted characters",
                  "<Asset TYPE='EDITBOX' STRING='Asset' CURRENT='A1'><AllowedCharacters>"
                  "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-</AllowedCharacters></Asset>",
                  "Asset", "", "Characters: - 0–9 A–Z", "Characters: - 0–9 A–Z"},
                 {"markup stays text", "", "SleepTimer", "<b>x</b> <img src='y'>",
                  "<b>x</b> <img src='y'>\n1 – 240, step 1", ""}});
    }
    void helpInPlace()
    {
        const auto [setting, id, description, help, placeholder] = texts<5>();
        Setup s(setting);
        if (!description.isEmpty()) {
            s.element(qPrintable(id))->setDescription(description);
            s.dialog.fillSettings(s.configurator->rootElement());
        }
        const auto shown = [](const QString& richText) {
            QTextDocument document;
            document.setHtml(richText);
            return document.toPlainText().replace(QChar::LineSeparator, '\n');
        };
        QWidget* control = show(s.dialog, qPrintable(id));
        QCOMPARE(shown(s.dialog.findParamItem(id)->toolTip(0)), help);
        QCOMPARE(shown(control->toolTip()), help);
        QCOMPARE(shown(control->whatsThis()), help);
        auto* edit = qobject_cast<QLineEdit*>(control);
        QCOMPARE(edit ? edit->placeholderText() : QString(), placeholder);
    }

    // A group that holds only groups links to them; following a link selects that group.
    void subgroupLinksSelectTheSubgroup()
    {
        Setup s("<Paper STRING='Paper'><Trays STRING='Trays'><Tray TYPE='INTEGER' STRING='Tray' "
                "CURRENT='1'/></Trays></Paper>");
        s.dialog.paramList->setCurrentItem(s.dialog.findParamItem("Paper"));
        auto* link = s.dialog.panel()->findChild<QCommandLinkButton*>("Trays");
        QVERIFY(link);
        click(link);
        QCOMPARE(s.current(), QString("Trays"));
        QVERIFY(s.element("Tray")->control());
    }

    void samplePaperSizeLimitsTheMargin()
    {
        // The shipped rules on the shipped laser sample, read as the program reads them.
        QTemporaryDir dir;
        for (const char* name : {"laser_mfp.xml", "dependencies.xml"})
            QVERIFY(QFile::copy(QString(TAV_DATA_DIR "/") + name,
                                dir.filePath(*name == 'l' ? "tav.xml" : name)));
        // The program reads its files from its own folder, which is its working folder.
        const QString before = QDir::currentPath();
        QDir::setCurrent(dir.path());
        const auto restore = qScopeGuard([&before] { QDir::setCurrent(before); });
        ModalWatcher boxes;
        Configurator configurator(dir.path(), dir.filePath("none"), "Laser", true, false, false,
                                  false);
        QVERIFY(configurator.getPrinterSettings());
        SettingsDialog dialog;
        dialog.initialize(&configurator, "Laser");
        dialog.show();
        auto* margin = qobject_cast<QSpinBox*>(show(dialog, "TopMargin"));
        QVERIFY(margin);
        QCOMPARE(margin->maximum(), 28); // A4
        margin->setFocus();
        margin->selectAll();
        QTest::keyClicks(margin, "27");
        QCOMPARE(valueElement(configurator, "TopMargin")->current(), QString("27"));
        auto* paper = qobject_cast<QComboBox*>(show(dialog, "PaperSize"));
        QVERIFY(paper);
        paper->setFocus();
        QTest::keyClick(paper, Qt::Key_Down); // A4 -> A5, which allows 18 mm at the top
        QCOMPARE(valueElement(configurator, "PaperSize")->current() + ' ' +
                     valueElement(configurator, "TopMargin")->current(),
                 QString("A5 18"));
        margin = qobject_cast<QSpinBox*>(show(dialog, "TopMargin"));
        QCOMPARE(qMakePair(margin->maximum(), margin->value()), qMakePair(18, 18));
    }

    // Default says what it changes and may keep to the group shown; a destructive device
    // button asks, naming the action, and goes out only when confirmed.
    void defaultAndDestructiveButtonsAsk()
    {
        Setup s("<ResetCounter TYPE='BUTTON' STRING='Reset counter' BUTTONLABEL='Reset'/>");
        show(s.dialog, "HostName");
        s.boxes.answers = {"defaultGroup"};
        click(s.dialog.defBtn);
        QCOMPARE(s.boxes.seen.value(0),
                 QString("Default|Put settings back to the printer's factory values?\n\nAll "
                         "groups: 3 setting(s) in 2 group(s).\nOnly \"Network\": 1 setting(s)."));
        QCOMPARE(s.row("HostName") + '|' + s.row("SleepTimer"), QString("laser-1|5"));
        s.boxes.answers = {"defaultAll"};
        click(s.dialog.defBtn);
        QCOMPARE(s.row("SleepTimer") + '|' + s.row("Location"), QString("15|Office"));

        auto* reset = qobject_cast<QPushButton*>(show(s.dialog, "ResetCounter"));
        QVERIFY(reset);
        s.boxes.answers = {"Cancel"};
        click(reset);
        QCOMPARE(s.boxes.seen.value(2), QString("Confirm|\"Reset counter\" cannot be undone.\n"
                                                "Send it to Test Laser now?"));
        QVERIFY(s.sent().isEmpty());
        s.boxes.answers = {"confirmAction"};
        click(reset);
        QVERIFY2(s.sent().contains("<ResetCounter CURRENT=\"PRESSED\"/>"), s.sent().constData());
    }

    // Escape, Close and the window's close button ask about changes not yet sent.
    void closeWithPendingChangesAsks()
    {
        Setup s;
        s.setting("SleepTimer")->valueChange("30");
        s.boxes.answers = {"pendingCancel"};
        QTest::keyClick(&s.dialog, Qt::Key_Escape);
        QVERIFY(s.dialog.isVisible());
        s.boxes.answers = {"pendingDiscard"};
        s.dialog.close();
        QVERIFY(!s.dialog.isVisible());
        QVERIFY(s.sent().isEmpty());
        s.dialog.show();
        s.boxes.answers = {"pendingApply"};
        click(s.dialog.closeBtn);
        QVERIFY(!s.dialog.isVisible());
        QVERIFY(s.printer->stateText().contains("CURRENT=\"30\""));
        QCOMPARE(s.boxes.seen.size(), 3);
    }

    void buttonPressIsSentAtOnce()
    {
        Setup s;
        auto* button = qobject_cast<ButtonElement*>(s.element("TestPage"));
        QVERIFY(button);
        button->onClick();
        QVERIFY(s.boxes.seen.isEmpty());
        QVERIFY2(s.sent().contains("<TestPage CURRENT=\"PRESSED\"/>"), s.sent().constData());
        QCOMPARE(s.dialog.pendingLabel->text(), QString("Test page sent"));
    }

    // A hidden setting hides its row; choosing a favourite shows its group; folding the
    // favourites twice restores them.
    void browsing()
    {
        Setup s;
        s.element("Location")->hide();
        QVERIFY(s.dialog.findParamItem("Location")->isHidden());
        s.element("Location")->show();
        QVERIFY(!s.dialog.findParamItem("Location")->isHidden());

        s.dialog.favoriteList->setCurrentItem(s.dialog.favoriteList->topLevelItem(1));
        QCOMPARE(s.current() + ' ' + s.dialog.shownGroup()->id(), QString("Network Network"));
        QVERIFY(s.element("HostName")->control() && !s.element("SleepTimer")->control());

        const int width = s.dialog.favoriteList->width();
        click(s.dialog.slider);
        QVERIFY(!s.dialog.favoriteList->isVisible());
        QCOMPARE(s.dialog.slider->text(), QString(">"));
        click(s.dialog.slider);
        QVERIFY(s.dialog.favoriteList->isVisible());
        QCOMPARE(s.dialog.favoriteList->width(), width);
        QCOMPARE(s.dialog.slider->text(), QString("<"));
    }

    // A group larger than a block of controls opens with its first block and fills in while
    // the event loop runs: a setting chosen before its turn is made at once, the controls end
    // up in the group's order with Tab running through them to Help, and leaving the group
    // stops the filling.
    void largeGroupFillsInWhileShown()
    {
        QString many;
        for (int i = 0; i < 700; ++i)
            many += QString("<E%1 TYPE='EDITBOX' STRING='Edit %1' CURRENT='v'/>").arg(i);
        {
            Setup s(many);
            QVERIFY(!s.element("E699")->control());
            QWidget* last = show(s.dialog, "E699");
            QVERIFY(last && !last->visibleRegion().isEmpty());
            QTRY_VERIFY(s.element("E698")->control());
            int y = -1;
            for (int i = 0; i < 700; ++i) {
                QWidget* c = s.element(qPrintable(QString("E%1").arg(i)))->control();
                const int at = c->mapTo(s.dialog.panel(), QPoint()).y();
                QVERIFY2(at > y, qPrintable(QString("E%1").arg(i)));
                y = at;
            }
            last->setFocus();
            QCOMPARE(last->nextInFocusChain(), static_cast<QWidget*>(s.dialog.helpBtn));
        }
        Setup s(many);
        s.dialog.favoriteList->setCurrentItem(s.dialog.favoriteList->topLevelItem(1));
        QTest::qWait(100);
        QVERIFY(!s.element("E0")->control() && !s.element("E699")->control());
        QCOMPARE(s.dialog.shownGroup()->id(), QString("Network"));
    }

    // Return moves from a row into its control and then stays with the field: it never
    // presses the fold button, whichever widget has the focus.
    void returnNeverFoldsTheGroups()
    {
        Setup s;
        s.dialog.activateWindow(); // no window manager gives it the focus
        QVERIFY(QTest::qWaitForWindowActive(&s.dialog));
        s.dialog.paramList->setFocus();
        s.dialog.paramList->setCurrentItem(s.dialog.findParamItem("Location"));
        QTest::keyClick(s.dialog.paramList, Qt::Key_Return);
        auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(edit);
        edit->selectAll();
        QTest::keyClicks(edit, "Hall");
        QTest::keyClick(edit, Qt::Key_Return);
        QTest::keyClick(s.dialog.favoriteList, Qt::Key_Return);
        QVERIFY(s.dialog.favoriteList->isVisible());
        QCOMPARE(s.setting("Location")->current() + '|' + s.row("Location"), QString("Hall|Hall"));
    }

    // Edited through its field, a setting and its group turn bold and are counted beside
    // Apply until the device has taken them.
    void changesAreMarkedUntilSent()
    {
        Setup s;
        auto* edit = qobject_cast<QLineEdit*>(show(s.dialog, "Location"));
        QVERIFY(edit);
        QTest::keyClick(edit, Qt::Key_End);
        QTest::keyClicks(edit, "2");
        SettingsViewItem* row = s.dialog.findParamItem("Location");
        QVERIFY(row->font(0).bold() && row->parent()->font(0).bold());
        QVERIFY(!s.dialog.findParamItem("Network")->font(0).bold());
        QCOMPARE(s.dialog.pendingLabel->text(), QString("1 pending change"));
        click(s.dialog.applyBtn);
        QVERIFY(!row->font(0).bold() && !row->parent()->font(0).bold());
        QCOMPARE(s.dialog.pendingLabel->text(), QString("1 setting sent to Test Laser"));
    }

    // Apply lists what goes out (secrets masked, cleared settings apart); Cancel keeps all of
    // it pending, Apply sends it, and "Don't ask again" turns the review off.
    void reviewBeforeSend()
    {
        ChangeReview::setWanted(true);
        Setup s("<AdminPassword TYPE='EDITBOX' STRING='Admin password' CURRENT='old'/>");
        for (const char* id : {"SleepTimer", "Location", "AdminPassword"}) {
            QWidget* field = show(s.dialog, id);
            field->setFocus();
            QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(field, *id == 'S' ? "30" : *id == 'L' ? "\b" : "new");
        }
        QStringList rows;
        answerReview("reviewCancel", false, &rows);
        click(s.dialog.applyBtn);
        QCOMPARE(rows, (QStringList{"changeList:Sleep timer|General|5 → 30",
                                    "changeList:Admin password|General|••• → •••",
                                    "clearedList:Location|General|Lab"}));
        QVERIFY(s.sent().isEmpty());
        QCOMPARE(s.dialog.pendingCount(), 3);
        answerReview("reviewApply", true, &rows);
        click(s.dialog.applyBtn);
        QVERIFY2(s.printer->stateText().contains("CURRENT=\"30\"") &&
                     s.printer->stateText().contains("CURRENT=\"new\""),
                 s.printer->stateText().constData());
        QCOMPARE(s.dialog.pendingCount(), 0);
        QVERIFY(!ChangeReview::isWanted());
    }

    // Export writes what the dialog shows once applied; an imported backup waits as edits,
    // which Apply lists for review first, and Cancel there sends nothing.
    void exportAndImportBackups()
    {
        QTemporaryDir place;
        const QString backup = place.filePath("backup.xml");
        {
            Setup s;
            for (const char* id : {"SleepTimer", "Location"}) {
                QWidget* field = show(s.dialog, id);
                field->setFocus();
                QTest::keyClick(field, Qt::Key_End);
                QTest::keyClicks(field, "2");
            }
            click(s.dialog.applyBtn);
            chooseFile(backup);
            click(s.dialog.exportBtn);
            BackupDocument written;
            QFile file(backup);
            QString error;
            QVERIFY(file.open(QIODevice::ReadOnly) && written.read(file.readAll(), &error));
            QCOMPARE(written.values.size(), 3);
            for (const auto& [id, value] : std::as_const(written.values))
                QCOMPARE(value, s.row(qPrintable(id)));
        }
        ChangeReview::setWanted(true);
        Setup s;
        chooseFile(backup);
        click(s.dialog.importBtn);
        QCOMPARE(s.row("SleepTimer") + '|' + s.row("Location"), QString("52|Lab2"));
        QStringList rows;
        answerReview("reviewCancel", false, &rows);
        click(s.dialog.applyBtn);
        QCOMPARE(rows, (QStringList{"changeList:Sleep timer|General|5 → 52",
                                    "changeList:Location|General|Lab → Lab2"}));
        QVERIFY(s.sent().isEmpty());
        QCOMPARE(s.dialog.pendingCount(), 2);
    }

    // Ctrl+F, typing, Escape and "Changed only" narrow the tree and widen it again; a row the
    // device's rules hide stays hidden until the rule lets it go, whatever the filter says.
    void findSettingAndChangedOnly()
    {
        QTemporaryDir work;
        QFile rules(work.filePath("dependencies.xml"));
        QVERIFY(rules.open(QIODevice::WriteOnly));
        rules.write("<root><Dependencies><TrayDuplex><Hide><Condition><Tray CURRENT='off' "
                    "IS='EQUAL'/></Condition></Hide></TrayDuplex></Dependencies></root>");
        rules.close();
        const QString before = QDir::currentPath();
        QDir::setCurrent(work.path());
        const auto restore = qScopeGuard([&before] { QDir::setCurrent(before); });
        Setup s("<Tray TYPE='EDITBOX' STRING='Tray &lt;b&gt;name' CURRENT='off'/>"
                "<TrayDuplex TYPE='EDITBOX' STRING='Tray duplex' CURRENT='x'/>");
        s.dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.dialog));
        const QString all = "SleepTimer Location Tray HostName TestPage";
        QCOMPARE(shownRows(s.dialog), all);
        auto* field = s.dialog.findChild<QLineEdit*>("filterField");
        QTest::keyClick(s.dialog.paramList, Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), field);
        QTest::keyClicks(field, "TRAY");
        QCOMPARE(shownRows(s.dialog), QString("Tray"));
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(field->text() + shownRows(s.dialog), all);
        QTest::keyClicks(field, "hostn"); // the id, not the title "Host name"
        QCOMPARE(shownRows(s.dialog), QString("HostName"));
        field->clear();
        QTest::keyClicks(field, "lab"); // the shown value
        QCOMPARE(shownRows(s.dialog), QString("Location"));
        QTest::keyClick(field, Qt::Key_Escape);

        auto* tray = qobject_cast<QLineEdit*>(show(s.dialog, "Tray"));
        tray->setFocus();
        QTest::keyClick(tray, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(tray, "on"); // the rule lets the duplex row go
        QTest::keyClick(s.dialog.findChild<QCheckBox*>("changedOnly"), Qt::Key_Space);
        QTRY_COMPARE(shownRows(s.dialog), QString("Tray"));
        QTest::keyClicks(field, "dup");
        QCOMPARE(shownRows(s.dialog), QString());
        QTest::keyClick(tray, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(tray, "off"); // unchanged again, and the duplex row hidden by the rule
        QTest::keyClick(field, Qt::Key_Escape);
        QTest::keyClick(s.dialog.findChild<QCheckBox*>("changedOnly"), Qt::Key_Space);
        QTRY_COMPARE(shownRows(s.dialog), all);
    }

    // A secret named by id or title, in any shipped language, is a password field with a
    // toggle, dots in the tree and the review, and never in the log, even at debug level.
    void secretsAreMasked_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<bool>("secret");
        QTest::newRow("id") << "<AdminPassword TYPE='EDITBOX' STRING='Access' CURRENT='old1'/>"
                            << true;
        QTest::newRow("PIN") << "<Code TYPE='EDITBOX' STRING='Fax PIN' CURRENT='old1'/>" << true;
        QTest::newRow("German") << "<Zugang TYPE='EDITBOX' STRING='Kennwort' CURRENT='old1'/>"
                                << true;
        QTest::newRow("plain") << "<Spindle TYPE='EDITBOX' STRING='Spindle' CURRENT='old1'/>"
                               << false;
    }

    void secretsAreMasked()
    {
        QFETCH(QString, setting);
        QFETCH(bool, secret);
        const QByteArray id = setting.section(' ', 0, 0).mid(1).toLatin1();
        ChangeReview::setWanted(true);
        logLevel = kDebugLogLevel;
        StderrCapture log;
        Setup s(setting);
        const auto quiet = qScopeGuard([] { logLevel = kDefaultLogLevel; });
        auto* field = qobject_cast<QLineEdit*>(show(s.dialog, id));
        QCOMPARE(field->echoMode(), secret ? QLineEdit::Password : QLineEdit::Normal);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, "new2");
        QCOMPARE(s.row(id), QString(secret ? "•••" : "new2"));
        if (auto* toggle = field->parentWidget()->findChild<QToolButton*>("showSecret")) {
            click(toggle);
            QCOMPARE(field->echoMode(), QLineEdit::Normal);
            click(toggle);
        }
        QCOMPARE(field->echoMode(), secret ? QLineEdit::Password : QLineEdit::Normal);
        QString review;
        QTimer::singleShot(0, [&review] {
            QWidget* box = QApplication::activeModalWidget();
            review = box->findChild<QTreeWidget*>("changeList")->topLevelItem(0)->text(2);
            click(box->findChild<QPushButton*>("reviewApply"));
        });
        click(s.dialog.applyBtn);
        QCOMPARE(review, QString(secret ? "••• → •••" : "old1 → new2"));
        QVERIFY(s.printer->stateText().contains("CURRENT=\"new2\""));
        QStringList lines = QString::fromUtf8(log.text()).split('\n');
        lines = lines.filter(QRegularExpression("^(?!tav-vprinter:)"));
        const QString text = lines.join('\n');
        QCOMPARE(text.contains("old1") || text.contains("new2"), !secret);
    }

    void resizableAndRememberedPerModel()
    {
        QSize size;
        {
            Setup s;
            QVERIFY(s.dialog.windowFlags() & Qt::WindowMaximizeButtonHint);
            s.dialog.resize(s.dialog.size() + QSize(120, 60));
            size = s.dialog.size();
            const int panel = s.dialog.paramFrame->width();
            const int groups = s.dialog.favoriteList->width();
            click(s.dialog.slider);
            QVERIFY(s.dialog.paramFrame->width() >= panel + groups);
            QTest::keyClick(&s.dialog, Qt::Key_Escape);
        }
        Setup s;
        QCOMPARE(s.dialog.size(), size);
        QVERIFY(!s.dialog.favoriteList->isVisible());
        click(s.dialog.slider);
        QVERIFY(s.dialog.favoriteList->isVisible());
    }

    void samplesNeedNoSidewaysScrolling_data()
    {
        addRows({"sample"}, {{"laser", "laser_mfp.xml"}, {"inkjet", "inkjet_mfp.xml"}});
    }
    void samplesNeedNoSidewaysScrolling()
    {
        QFETCH(QString, sample);
        QTemporaryDir dir;
        QVERIFY(QFile::copy(QString(TAV_DATA_DIR "/") + sample, dir.filePath("tav.xml")));
        QFile::copy(QString(TAV_DATA_DIR "/dependencies.xml"), dir.filePath("dependencies.xml"));
        const QString before = QDir::currentPath();
        QDir::setCurrent(dir.path());
        const auto restore = qScopeGuard([&before] { QDir::setCurrent(before); });
        ModalWatcher boxes;
        Configurator configurator(dir.path(), dir.filePath("none"), "Sample", true, false, false,
                                  false);
        QVERIFY(configurator.getPrinterSettings());
        SettingsDialog dialog;
        dialog.initialize(&configurator, "Sample");
        dialog.show();
        auto* scroll = dialog.findChild<QScrollArea*>("panelScroll");
        QStringList clipped;
        for (QTreeWidgetItemIterator it(dialog.paramList); *it; ++it) {
            dialog.paramList->setCurrentItem(*it);
            QCoreApplication::processEvents();
            if (scroll->horizontalScrollBar()->isVisible())
                clipped << dialog.shownGroup()->title();
        }
        clipped.removeDuplicates();
        QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join(", ")));
    }

    void helpShowsTheLocalPage()
    {
        Setup s;
        QString source;
        QTimer::singleShot(50, this, [&source] {
            if (auto* viewer = qobject_cast<HelpViewer*>(QApplication::activeModalWidget())) {
                source = viewer->browser()->source().toLocalFile();
                viewer->reject();
            }
        });
        click(s.dialog.helpBtn);
        QVERIFY2(source.endsWith("/share/help/index.html"), qPrintable(source));
    }

    void unreachableDeviceAtStart()
    {
        QTemporaryDir dir;
        Configurator configurator(dir.path(), dir.filePath("lp9"), "Test Laser", false, false,
                                  false, false);
        QVERIFY(!configurator.getPrinterSettings());
        SettingsDialog dialog;
        dialog.initialize(&configurator, "Test Laser");
        QCOMPARE(dialog.paramList->topLevelItemCount() + dialog.favoriteList->topLevelItemCount(),
                 0);
        // The box names the cause and the device below its first line; Close declines.
        ModalWatcher boxes;
        boxes.answers << "Close";
        QVERIFY(!StartupError::askRetry(configurator.exchangeProblem(), dir.filePath("lp9")));
        QCOMPARE(boxes.seen, QStringList("Error|Cannot get printer settings!\nThe printer could "
                                         "not be reached.\nDevice: " +
                                         dir.filePath("lp9")));
    }
};

QTEST_MAIN(TestSettingsDialog)
#include "TestSettingsDialog.moc"
