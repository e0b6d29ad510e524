#pragma once

#include <QDialog>

class QTextBrowser;

// Shows the local help page that ships in share/help, inside the program, so that help
// works without a web browser.
class HelpViewer : public QDialog
{
    Q_OBJECT

public:
    explicit HelpViewer(QWidget* parent = nullptr);

    static QString helpFile();
    static void showHelp(QWidget* parent);

    QTextBrowser* browser() const { return _browser; }

private:
    QTextBrowser* _browser;
};
