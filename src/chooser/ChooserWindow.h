#pragma once

#include "io/DiscoveredPrinter.h"

#include <QWidget>

class PrinterMonitor;
class QLabel;
class QListWidget;
class QPushButton;

// The printers connected now, kept current as they are plugged in and out; the one chosen
// opens in the settings dialog.
class ChooserWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ChooserWindow(const QString& binDir, QWidget* parent = nullptr);

    const DiscoveredPrinters& printers() const { return _printers; }
    // Starts the settings dialog `tav` beside this program for one printer.
    static bool launch(const QString& binDir, const DiscoveredPrinter& printer);

public slots:
    void refresh();
    // Starts the settings dialog for the selected printer.
    void openSelected();

signals:
    void printerOpened(const QString& node);

private:
    QString binDir;
    DiscoveredPrinters _printers;
    QListWidget* list;
    QLabel* noneLabel;
    QPushButton* openButton;
    PrinterMonitor* monitor;
};
