#include "../elements/Rows.h"
#include "PrinterThread.h"
#include "app/Configurator.h"
#include "elements/Element.h"
#include "io/TAVCommand.h"
#include "ui/InkAlignMFPWizard.h"
#include "ui/InkAlignSFPWizard.h"
#include "ui/InkCleanWizard.h"
#include "ui/InkStepPage.h"
#include "ui/InkTestPageWizard.h"
#include "vprinter/RequestParser.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDomDocument>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

// A program folder holding the inkjet sample as ./tav.xml, served by an in-process virtual
// printer, and a Configurator on it that saves every change document it sends.
struct Setup
{
    QTemporaryDir dir;
    QString bin = dir.filePath(QStringLiteral("bin"));
    std::unique_ptr<PrinterThread> printer;
    std::unique_ptr<Configurator> configurator;

    explicit Setup(VirtualPrinterOptions options = {})
    {
        QDir().mkpath(bin);
        QFile::copy(QStringLiteral(TAV_DATA_DIR "/inkjet_mfp.xml"), bin + "/tav.xml");
        options.specificationFile = bin + "/tav.xml";
        printer = std::make_unique<PrinterThread>(options);
        printer->start();
        configurator = std::make_unique<Configurator>(bin, printer->printer.devicePath(), "InkJet",
                                                      true, true, false, false);
        configurator->getPrinterSettings();
    }

    // The wizard the settings dialog would start for this button.
    std::unique_ptr<InkWizard> wizard(const QString& id, bool photoInk) const
    {
        const QString kind = configurator->parser().findElement(id)->metaObject()->className();
        Configurator* c = configurator.get();
        std::unique_ptr<InkWizard> made;
        if (kind == "InkTestPagePrintElement")
            made = std::make_unique<InkTestPageWizard>(c, id);
        else if (kind == "InkCartridgeCleanElement")
            made = std::make_unique<InkCleanWizard>(c, id);
        else if (kind == "InkCartridgeAlignSFPElement")
            made = std::make_unique<InkAlignSFPWizard>(c, id, photoInk);
        else
            made = std::make_unique<InkAlignMFPWizard>(c, id);
        made->show();
        return made;
    }

    // What the printer made of the ink blocks and presses it received.
    QStringList actions() const
    {
        return printer->reports().filter(QRegularExpression("^(ink command|button|fault)"));
    }

    // The settings named by the last change document, as "id=CURRENT".
    QStringList sentSettings() const
    {
        QDomDocument document;
        document.setContent(PrinterThread::fileText(bin + "/tav_send(InkJet).xml"));
        QStringList settings;
        QDomElement item = document.documentElement().firstChildElement().firstChildElement();
        for (; !item.isNull(); item = item.nextSiblingElement())
            settings << item.tagName() + '=' + item.attribute("CURRENT");
        return settings;
    }
};

void commit(QWizard& wizard)
{
    QTest::mouseClick(wizard.button(QWizard::CommitButton), Qt::LeftButton);
}

InkStepPage* page(QWizard& wizard)
{
    return qobject_cast<InkStepPage*>(wizard.currentPage());
}

// Chooses patterns from the keyboard: first pattern on row 1, last on row 3.
void choosePatterns(QWizard& wizard)
{
    QTest::keyClick(wizard.findChild<QComboBox*>("row1"), Qt::Key_Home);
    QTest::keyClick(wizard.findChild<QComboBox*>("row3"), Qt::Key_End);
}

} // namespace

// The ink maintenance wizards against the virtual printer: the bytes each command-block kind
// writes, the change document each reporting kind sends, and what the user sees on failure.
class TestInkWizards : public QObject
{
    Q_OBJECT

private slots:
    // Each kind writes its command blocks ("name=block", ";" between), or sends its press as a
    // change document (no blocks); "+" after the button: with photo ink.
    void commandBlocks_data()
    {
        addRows({"button", "received"},
                {{"test page", "PrintTestPage", "test page=@TIJTPAG0"},
                 {"cleaning", "CleanCartridges", "cartridge cleaning=@TIJCLEN0"},
                 {"align, no photo ink", "AlignCartridges",
                  "alignment page=@TIJASFP10;alignment choice=@TIJASET3ACE"},
                 {"align, photo ink", "AlignCartridges+",
                  "alignment page=@TIJASFP11;alignment choice=@TIJASET5ACECC"},
                 {"align with scanner", "AlignCartridgesScan",
                  "alignment page for the scanner=@TIJAMFP0;scan and align=@TIJASCN0"},
                 {"test page press", "PrintQualityReport+", ""},
                 {"cleaning press", "CleanCartridgesDeep+", ""},
                 {"align press", "AlignCartridgesManual+", ""},
                 {"align with scanner press", "AlignCartridgesScanXml+", ""}});
    }
    void commandBlocks()
    {
        QFETCH(QString, button);
        QFETCH(QString, received);
        const bool photoInk = button.endsWith('+');
        button.remove('+');
        QStringList blocks;
        for (const QString& block : received.split(';', Qt::SkipEmptyParts))
            blocks << QStringLiteral("ink command: %1 \"%2\" after 16 zero bytes")
                          .arg(block.section('=', 0, 0), block.section('=', 1));
        Setup s;
        auto wizard = s.wizard(button, photoInk);
        for (int step = 0; step < qMax(1, blocks.size()); ++step) {
            QVERIFY(page(*wizard)->isCommitPage());
            if (wizard->findChild<QComboBox*>("row1") && step == 1)
                choosePatterns(*wizard);
            commit(*wizard);
            QCOMPARE(page(*wizard)->failure(), QString());
        }
        QVERIFY(wizard->currentPage()->isFinalPage());
        // Blocks never go the settings way; a press goes that way alone.
        const bool press = blocks.isEmpty();
        QTRY_COMPARE(s.actions(), press ? QStringList{"button <" + button + "> pressed"} : blocks);
        QCOMPARE(s.sentSettings(), press ? QStringList{button + "=PRESSED"} : QStringList());
    }

    // How many steps succeed before the fault: the printer gone, the press refused, or the
    // scan failing.
    void failures_data()
    {
        const char* gone = "could not be opened";
        const char* refused = "did not accept the request";
        addRows({"button", "steps", "fault", "reason"},
                {{"gone before the test page", "PrintTestPage", "0", "gone", gone},
                 {"gone between alignment pages", "AlignCartridges", "1", "gone", gone},
                 {"gone before a press", "CleanCartridgesDeep", "0", "gone", refused},
                 {"press refused", "PrintQualityReport", "0", "reject", refused},
                 {"scan failed", "AlignCartridgesScan", "1", "ink",
                  "could not read the alignment page"}});
    }
    void failures()
    {
        QFETCH(QString, button);
        QFETCH(QString, steps);
        QFETCH(QString, fault);
        QFETCH(QString, reason);
        VirtualPrinterOptions options;
        options.rejectChanges = fault == "reject";
        options.inkFail = fault == "ink";
        Setup s(options);
        auto wizard = s.wizard(button, false);
        for (int step = 0; step < steps.toInt(); ++step)
            commit(*wizard);
        if (fault == "gone")
            s.printer.reset();
        if (wizard->findChild<QComboBox*>("row1"))
            choosePatterns(*wizard);
        const int stuck = wizard->currentId();
        commit(*wizard);
        QCOMPARE(wizard->currentId(), stuck);
        const QString failure = page(*wizard)->failure();
        QVERIFY2(failure.contains(reason) && failure.contains("try again"), qPrintable(failure));
        QVERIFY(!wizard->currentPage()->isFinalPage());
        if (auto* row1 = wizard->findChild<QComboBox*>("row1"))
            QCOMPARE(row1->currentText(), "A"); // the choice survives the failure
    }

    // Ink blocks and settings requests share the stream without being mistaken for each other.
    void parserKeepsCommandsApart_data()
    {
        const QByteArray padding(16, '\0');
        QTest::addColumn<QByteArrayList>("pieces");
        QTest::addColumn<QStringList>("requests");
        QTest::newRow("block, then request")
            << QByteArrayList{padding + "@TIJCLEN0" + TAVCommand::tav("ALL?")}
            << QStringList{"ink:16:@TIJCLEN0", "tav:0:ALL?"};
        QTest::newRow("block in pieces") << QByteArrayList{padding + "@T", "IJASET3", "ACE"}
                                         << QStringList{"ink:16:@TIJASET3ACE"};
        QTest::newRow("marker inside a change document")
            << QByteArrayList{TAVCommand::tav("<a v='@TIJTPAG0'/>")}
            << QStringList{"tav:0:<a v='@TIJTPAG0'/>"};
        QTest::newRow("bad count skipped")
            << QByteArrayList{"@TIJTPAGx" + TAVCommand::tav("DATA")} << QStringList{"tav:0:DATA"};
    }
    void parserKeepsCommandsApart()
    {
        QFETCH(QByteArrayList, pieces);
        QFETCH(QStringList, requests);
        RequestParser parser;
        QStringList seen;
        PrinterRequest request;
        for (const QByteArray& piece : pieces) {
            parser.feed(piece.constData(), int(piece.size()));
            while (parser.next(request))
                seen << QStringLiteral("%1:%2:%3")
                            .arg(request.framing == PrinterRequest::Ink ? "ink" : "tav")
                            .arg(request.padding)
                            .arg(QString::fromLatin1(request.data));
        }
        QCOMPARE(seen, requests);
    }

    void cleaningOffersTestPage()
    {
        Setup s;
        for (const bool wanted : {true, false}) {
            InkCleanWizard wizard(s.configurator.get(), "CleanCartridges");
            wizard.show();
            commit(wizard);
            if (!wanted)
                wizard.findChild<QAbstractButton*>("testPageBox")->click();
            wizard.button(QWizard::FinishButton)->click();
            QCOMPARE(wizard.testPageWanted(), wanted);
        }
    }
};

QTEST_MAIN(TestInkWizards)
#include "TestInkWizards.moc"
