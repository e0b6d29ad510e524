#include "chooser/ChooserWindow.h"

#include "io/PrinterDiscovery.h"
#include "io/PrinterMonitor.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QVBoxLayout>

ChooserWindow::ChooserWindow(const QString& binDir, QWidget* parent)
    : QWidget(parent)
    , binDir(binDir)
    , list(new QListWidget(this))
    , noneLabel(new QLabel(this))
    , openButton(new QPushButton(tr("&Open settings"), this))
    , monitor(new PrinterMonitor(this))
{
    setWindowTitle(tr("Tavolor: choose a printer"));
    list->setObjectName(QStringLiteral("printerList"));
    noneLabel->setObjectName(QStringLiteral("noneLabel"));
    noneLabel->setWordWrap(true);
    noneLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    noneLabel->setText(
        tr("No USB printer is connected. Plug one in and it appears here.\n\n"
           "To try Tavolor without a printer, start the virtual printer in a terminal:\n"
           "    tav-vprinter SPECIFICATION.xml --link /tmp/virtual-lp\n"
           "then open it with:\n"
           "    tav /tmp/virtual-lp \"Virtual printer\"\n"
           "(from a source checkout, 'make demo' does both)."));
    openButton->setObjectName(QStringLiteral("openButton"));
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(openButton, QDialogButtonBox::AcceptRole);
    buttons->addButton(QDialogButtonBox::Close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Connected printers:"), this));
    layout->addWidget(list);
    layout->addWidget(noneLabel);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QWidget::close);
    connect(openButton, &QPushButton::clicked, this, &ChooserWindow::openSelected);
    connect(list, &QListWidget::itemActivated, this, &ChooserWindow::openSelected);
    connect(monitor, &PrinterMonitor::printersChanged, this, &ChooserWindow::refresh);
    resize(520, 320);
    refresh();
}

void ChooserWindow::refresh()
{
    _printers = PrinterDiscovery::list();
    list->clear();
    for (const DiscoveredPrinter& printer : std::as_const(_printers)) {
        list->addItem(tr("%1 %2 (serial %3) at %4")
                          .arg(printer.manufacturer, printer.model, printer.serial, printer.node));
    }
    if (!_printers.isEmpty())
        list->setCurrentRow(0);
    list->setVisible(!_printers.isEmpty());
    noneLabel->setVisible(_printers.isEmpty());
    openButton->setEnabled(!_printers.isEmpty());
}

void ChooserWindow::openSelected()
{
    const int row = list->currentRow();
    if (row < 0 || row >= _printers.size())
        return;
    launch(binDir, _printers.at(row));
    emit printerOpened(_printers.at(row).node);
}

bool ChooserWindow::launch(const QString& binDir, const DiscoveredPrinter& printer)
{
    // The model name the printing system would pass: manufacturer and model.
    const QString name = QStringLiteral("%1 %2").arg(printer.manufacturer, printer.model).trimmed();
    return QProcess::startDetached(binDir + QStringLiteral("/tav"), {printer.node, name});
}
