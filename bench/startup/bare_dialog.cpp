#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

// The yardstick of the start-up benchmark: the least a Qt program does to show a dialog.
int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QDialog dialog;
    dialog.setWindowTitle(QStringLiteral("%1 - bare").arg(QString::fromLocal8Bit(argv[argc - 1])));
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLabel(QStringLiteral("Printer Settings")));
    return dialog.exec();
}
