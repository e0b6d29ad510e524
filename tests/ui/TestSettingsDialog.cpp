#include "ButtonElement.h"
#include "ConcreteElement.h"
#include "Configurator.h"
#include "FormElement.h"
#include "HelpViewer.h"
#include "ModalWatcher.h"
#include "PopupForm.h"
#include "SettingsDialog.h"
#include "SettingsViewItem.h"
#include "VirtualPrinterProcess.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeWidget>

namespace {

// %1 stands for extra settings a test adds to the General group.
const char kSpecification[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<root><PrinterSettingsInfo STRING="Printer Settings">
  <General STRING="General">
    <SleepTimer TYPE="INTEGER" STRING="Sleep timer" CURRENT="5" FACTORY="15" MIN="1" MAX="240"/>
    <Location TYPE="EDITBOX" STRING="Location" CURRENT="Lab" FACTORY="Office"/>
    %1
  </General>
  <Network STRING="Network">
    <HostName TYPE="EDITBOX" STRING="Host name" CURRENT="printer" FACTORY="printer"/>
  </Network>
  <Service STRING="Service">
    <TestPage TYPE="BUTTON" STRING="Test page" BUTTONLABEL="Print"/>
  </Service>
</PrinterSettingsInfo></root>
)";

const char kDevName[] = "Test Laser";

ConcreteElement* valueElement(Configurator& c, const char* id)
{
    return qobject_cast<ConcreteElement*>(c.rootElement()->findElement(QString::fromLatin1(id)));
}

} // namespace

class TestSettingsDialog : public QObject
{
    Q_OBJECT

    // A program folder holding the specification as ./tav.xml, and a virtual printer
    // serving the same document for Apply.
    struct Setup
    {
        QTemporaryDir dir;
        QString bin;
        std::unique_ptr<VirtualPrinterProcess> printer;
        std::unique_ptr<Configurator> configurator;
        ModalWatcher boxes;
        std::unique_ptr<SettingsDialog> dialog;

        explicit Setup(const QString& extra = QString(), const QStringList& faults = {},
                       bool reachable = true)
            : bin(dir.filePath(QStringLiteral("bin")))
        {
            QDir().mkpath(bin);
            QFile file(bin + QStringLiteral("/tav.xml"));
            file.open(QIODevice::WriteOnly);
            file.write(QString::fromUtf8(kSpecification).arg(extra).toUtf8());
            file.close();
            printer = std::make_unique<VirtualPrinterProcess>(bin + QStringLiteral("/tav.xml"),
                                                              dir.path(), faults);
            const QString device =
                reachable ? printer->link : dir.filePath(QStringLiteral("no-such-device"));
            configurator = std::make_unique<Configurator>(
                bin, device, QString::fromLatin1(kDevName), true, true, false, false);
            configurator->getPrinterSettings();
            dialog = std::make_unique<SettingsDialog>();
            dialog->initialize(configurator.get(), QString::fromLatin1(kDevName));
            dialog->show();
        }

        QString row(const char* id) const
        {
            SettingsViewItem* item = dialog->findParamItem(QString::fromLatin1(id));
            return item ? item->text(1) : QStringLiteral("<no row>");
        }

        ConcreteElement* setting(const char* id) { return valueElement(*configurator, id); }
        Element* element(const char* id) const
        {
            return configurator->rootElement()->findElement(QString::fromLatin1(id));
        }
        void change(const char* id, const char* value) { setting(id)->valueChange(value); }
        void click(QAbstractButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

        QByteArray sent() const
        {
            QFile file(bin + QStringLiteral("/tav_send(Test Laser).xml"));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        }
    };

private slots:
    void opensWithDeviceValues()
    {
        Setup s(
            QStringLiteral("<Owner TYPE=\"EDITBOX\" STRING=\"Owner\" CURRENT=\"not_allowed;\"/>"));
        QVERIFY(s.printer->isReady());
        QCOMPARE(s.row("SleepTimer"), QStringLiteral("5"));
        QCOMPARE(s.row("Location"), QStringLiteral("Lab"));
        QCOMPARE(s.dialog->favoriteList->topLevelItemCount(), 3);
        QCOMPARE(s.dialog->favoriteList->topLevelItem(1)->text(0), QStringLiteral("Network"));
        QVERIFY(!s.dialog->applyBtn->isEnabled());
        // A value the setting's own pattern rejects is reported once, after the dialog shows.
        QTRY_COMPARE(s.boxes.seen, QStringList{QStringLiteral(
                                       "Error|The following settings cannot be validated and will "
                                       "have empty values:\n\nOwner\n")});
    }

    void applySendsOnlyChanges()
    {
        Setup s;
        s.change("SleepTimer", "30");
        QCOMPARE(s.row("SleepTimer"), QStringLiteral("30"));
        QVERIFY(s.dialog->applyBtn->isEnabled());
        s.click(s.dialog->applyBtn);
        QVERIFY(s.boxes.seen.isEmpty());
        QVERIFY(!s.dialog->applyBtn->isEnabled());
        QCOMPARE(s.setting("SleepTimer")->initial(), QStringLiteral("30"));
        const QByteArray state = s.printer->stateText();
        QVERIFY2(state.contains("CURRENT=\"30\""), state.constData());
        const QByteArray sent = s.sent();
        QVERIFY2(sent.contains("<SleepTimer CURRENT=\"30\"/>"), sent.constData());
        QVERIFY(!sent.contains("Location"));
    }

    void refusedOrUnreachableApplyKeepsChanges_data()
    {
        QTest::addColumn<QStringList>("faults");
        QTest::addColumn<bool>("reachable");
        QTest::newRow("refused") << QStringList{QStringLiteral("--reject")} << true;
        QTest::newRow("no answer") << QStringList{QStringLiteral("--mute")} << true;
        QTest::newRow("no device") << QStringList() << false;
    }

    void refusedOrUnreachableApplyKeepsChanges()
    {
        QFETCH(QStringList, faults);
        QFETCH(bool, reachable);
        Setup s(QString(), faults, reachable);
        s.change("SleepTimer", "30");
        s.click(s.dialog->applyBtn);
        QCOMPARE(s.boxes.seen.size(), 1);
        QVERIFY2(s.boxes.seen.first().startsWith(
                     QStringLiteral("Error|The printer did not accept the changes")),
                 qPrintable(s.boxes.seen.first()));
        QVERIFY(s.dialog->applyBtn->isEnabled());
        QCOMPARE(s.setting("SleepTimer")->current() + s.setting("SleepTimer")->initial() +
                     s.row("SleepTimer"),
                 QStringLiteral("30530"));
    }

    void invalidValueBlocksApplyAndLeadsToIt()
    {
        Setup s(QStringLiteral(
            "<PrintServer TYPE=\"IPADDRESS\" STRING=\"Print server\" CURRENT=\"300.1.1.1\"/>"));
        s.dialog->paramList->setCurrentItem(s.dialog->findParamItem(QStringLiteral("HostName")));
        s.change("SleepTimer", "30");
        s.click(s.dialog->applyBtn);
        QCOMPARE(s.boxes.seen,
                 QStringList{QStringLiteral("Error|The '300.1.1.1' is not a valid entry for "
                                            "'Print server'.\nPlease specify another value")});
        auto* current = static_cast<SettingsViewItem*>(s.dialog->paramList->currentItem());
        QCOMPARE(current->element()->id(), QStringLiteral("PrintServer"));
        QVERIFY(s.sent().isEmpty());
        QVERIFY(!s.printer->stateText().contains("CURRENT=\"30\""));
    }

    static QString withForm(const char* address)
    {
        return QStringLiteral("<Net TYPE=\"POPUP\" STRING=\"Network\">"
                              "<Server TYPE=\"EDITBOX\" STRING=\"Server\" CURRENT=\"a\"/>"
                              "<Ip TYPE=\"IPADDRESS\" STRING=\"Address\" CURRENT=\"%1\"/>"
                              "</Net>")
            .arg(QLatin1String(address));
    }

    void popupFormIsAppliedAlone()
    {
        Setup s(withForm("1.2.3.4"));
        s.change("SleepTimer", "30");
        auto* net = qobject_cast<FormElement*>(s.element("Net"));
        s.dialog->paramList->setCurrentItem(s.dialog->findParamItem(QStringLiteral("General")));
        auto* button = qobject_cast<QPushButton*>(net->control());
        QVERIFY(button);
        QTimer::singleShot(0, net, [net] {
            PopupForm* popup = net->form();
            QVERIFY(popup);
            auto* address = popup->controlPanel()->findChildren<QLineEdit*>().value(1);
            QVERIFY(address);
            address->selectAll();
            QTest::keyClicks(address, QStringLiteral("10.0.0.9"));
            QTest::mouseClick(popup->findChild<QPushButton*>(QStringLiteral("btnOK")),
                              Qt::LeftButton);
            if (net->form())
                net->form()->reject();
        });
        s.click(button);
        // The form goes to the device by itself; the change outside it stays pending.
        QVERIFY2(s.sent().contains("<Ip CURRENT=\"10.0.0.9\"/>"), s.sent().constData());
        QVERIFY(!s.sent().contains("SleepTimer"));
        QVERIFY(s.printer->stateText().contains("10.0.0.9"));
        QVERIFY(s.dialog->applyBtn->isEnabled());
    }

    void invalidValueInFormOpensTheForm()
    {
        Setup s(withForm("300.1.1.1"));
        s.change("SleepTimer", "30");
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
        QTest::mouseClick(s.dialog->applyBtn, Qt::LeftButton);
        QTRY_VERIFY(opened);
        QCOMPARE(s.boxes.seen.value(0).section(QLatin1Char('|'), 0, 0), QStringLiteral("Error"));
        QVERIFY(s.sent().isEmpty());
    }

    void samplePaperSizeLimitsTheMargin()
    {
        // The shipped rules on the shipped laser sample, read as the program reads them.
        QTemporaryDir dir;
        QVERIFY(
            QFile::copy(QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml"), dir.filePath("tav.xml")));
        QVERIFY(QFile::copy(QStringLiteral(TAV_DATA_DIR "/dependencies.xml"),
                            dir.filePath("dependencies.xml")));
        // The program reads its files from its own folder, which is its working folder.
        const QString before = QDir::currentPath();
        QDir::setCurrent(dir.path());
        const auto restore = qScopeGuard([&before] { QDir::setCurrent(before); });
        ModalWatcher boxes;
        Configurator configurator(dir.path(), dir.filePath("none"), QStringLiteral("Laser"), true,
                                  false, false, false);
        QVERIFY(configurator.getPrinterSettings());
        SettingsDialog dialog;
        dialog.initialize(&configurator, QStringLiteral("Laser"));
        dialog.show();
        const auto show = [&dialog](const char* id) {
            dialog.paramList->setCurrentItem(dialog.findParamItem(QString::fromLatin1(id)));
            return dialog.findParamItem(QString::fromLatin1(id))->element()->control();
        };
        auto* margin = qobject_cast<QSpinBox*>(show("TopMargin"));
        QVERIFY(margin);
        QCOMPARE(margin->maximum(), 28); // A4
        margin->setFocus();
        margin->selectAll();
        QTest::keyClicks(margin, QStringLiteral("27"));
        QCOMPARE(valueElement(configurator, "TopMargin")->current(), QStringLiteral("27"));

        auto* paper = qobject_cast<QComboBox*>(show("PaperSize"));
        QVERIFY(paper);
        paper->setFocus();
        QTest::keyClick(paper, Qt::Key_Down); // A4 -> A5, which allows 18 mm at the top
        QCOMPARE(valueElement(configurator, "PaperSize")->current(), QStringLiteral("A5"));
        QCOMPARE(valueElement(configurator, "TopMargin")->current(), QStringLiteral("18"));
        margin = qobject_cast<QSpinBox*>(show("TopMargin"));
        QCOMPARE(margin->maximum(), 18);
        QCOMPARE(margin->value(), 18);
    }

    void defaultRestoresFactoryValues()
    {
        Setup s;
        s.click(s.dialog->defBtn);
        QCOMPARE(s.setting("SleepTimer")->current() + s.row("SleepTimer") + s.row("Location"),
                 QStringLiteral("1515Office"));
        QVERIFY(s.dialog->applyBtn->isEnabled());
    }

    void buttonPressIsSentAtOnce()
    {
        Setup s;
        auto* button = qobject_cast<ButtonElement*>(s.element("TestPage"));
        QVERIFY(button);
        button->onClick();
        QVERIFY(s.boxes.seen.isEmpty());
        QVERIFY2(s.sent().contains("<TestPage CURRENT=\"PRESSED\"/>"), s.sent().constData());
    }

    // A hidden setting hides its row; choosing a favourite shows its group; folding the
    // favourites twice restores them.
    void browsing()
    {
        Setup s;
        s.element("Location")->hide();
        QVERIFY(s.dialog->findParamItem(QStringLiteral("Location"))->isHidden());
        s.element("Location")->show();
        QVERIFY(!s.dialog->findParamItem(QStringLiteral("Location"))->isHidden());

        s.dialog->favoriteList->setCurrentItem(s.dialog->favoriteList->topLevelItem(1));
        auto* current = static_cast<SettingsViewItem*>(s.dialog->paramList->currentItem());
        QCOMPARE(current->element()->id() + s.dialog->shownGroup()->id(), "NetworkNetwork");
        QVERIFY(s.element("HostName")->control() && !s.element("SleepTimer")->control());

        const int width = s.dialog->favoriteList->width();
        s.click(s.dialog->slider);
        QVERIFY(!s.dialog->favoriteList->isVisible());
        QCOMPARE(s.dialog->slider->text(), QStringLiteral(">"));
        s.click(s.dialog->slider);
        QVERIFY(s.dialog->favoriteList->isVisible());
        QCOMPARE(s.dialog->favoriteList->width(), width);
        QCOMPARE(s.dialog->slider->text(), QStringLiteral("<"));
    }

    void helpShowsTheLocalPage()
    {
        Setup s;
        QString source;
        QTimer::singleShot(50, this, [&source] {
            auto* viewer = qobject_cast<HelpViewer*>(QApplication::activeModalWidget());
            if (!viewer)
                return;
            source = viewer->browser()->source().toLocalFile();
            viewer->reject();
        });
        s.click(s.dialog->helpBtn);
        QVERIFY2(source.endsWith(QStringLiteral("/share/help/index.html")), qPrintable(source));
    }

    void unreachableDeviceAtStart()
    {
        QTemporaryDir dir;
        Configurator configurator(dir.path(), dir.filePath(QStringLiteral("lp9")),
                                  QString::fromLatin1(kDevName), false, false, false, false);
        QVERIFY(!configurator.getPrinterSettings());
        SettingsDialog dialog;
        dialog.initialize(&configurator, QString::fromLatin1(kDevName));
        QCOMPARE(dialog.paramList->topLevelItemCount(), 0);
        QCOMPARE(dialog.favoriteList->topLevelItemCount(), 0);
    }
};

QTEST_MAIN(TestSettingsDialog)
#include "TestSettingsDialog.moc"
