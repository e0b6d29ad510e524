// Creating and deleting the controls of a group of 500 mixed settings, beside creating and
// deleting the same widgets (caption box, caption, input) straight from Qt in the same run.
// The ratio is the cost of the element layer: value rules, wiring, mnemonics, logging.
#include "elements/ComplexElement.h"
#include "xml/SettingsParser.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

namespace {

constexpr int kSettings = 500;
constexpr int kRounds = 7;

const char* const kKinds[] = {
    "<S%1 TYPE=\"CHECKBOX\" STRING=\"Check %1\" CURRENT=\"On\"><Off/><On/></S%1>",
    "<S%1 TYPE=\"RADIOBUTTON\" STRING=\"Radio %1\" CURRENT=\"B\"><A/><B/><C/></S%1>",
    "<S%1 TYPE=\"COMBOBOX\" STRING=\"Combo %1\" CURRENT=\"C\"><A/><B/><C/><D/><E/></S%1>",
    "<S%1 TYPE=\"INTEGER\" STRING=\"Integer %1\" MIN=\"0\" MAX=\"99\" STEP=\"1\" CURRENT=\"5\"/>",
    "<S%1 TYPE=\"FLOAT\" STRING=\"Float %1\" MIN=\"0\" MAX=\"9\" DIGITS=\"2\" CURRENT=\"1.5\"/>",
    "<S%1 TYPE=\"EDITBOX\" STRING=\"Edit %1\" MAX=\"20\" CURRENT=\"text\"/>",
    "<S%1 TYPE=\"IPADDRESS\" STRING=\"Address %1\" CURRENT=\"10.0.0.1\"/>",
    "<S%1 TYPE=\"DATETIME\" STRING=\"Clock %1\" CURRENT=\"2026-01-02 03:04\"/>",
    "<S%1 TYPE=\"BUTTON\" STRING=\"Button %1\"/>",
    "<S%1 TYPE=\"STATICTEXT\" STRING=\"Text %1\" TEXTLABEL=\"Some words %1\"/>",
};
constexpr int kKindCount = int(sizeof(kKinds) / sizeof(kKinds[0]));

const QString kEditPattern = QStringLiteral("[@*+-.,#/&'\\sA-Za-z0-9]*");
const QString kAddressPattern = QStringLiteral(
    "((?:[0-9]{0,2}|0[0-9]{2}|1[0-9]{2}|2[0-4][0-9]|25[0-5])\\.(?:[0-9]{0,2}|0[0-9]{2}|1[0-9]{2}|"
    "2[0-4][0-9]|25[0-5])\\.(?:[0-9]{0,2}|0[0-9]{2}|1[0-9]{2}|2[0-4][0-9]|25[0-5])\\.(?:[0-9]{0,"
    "2}|0[0-9]{2}|1[0-9]{2}|2[0-4][0-9]|25[0-5]))?");

QString specification()
{
    QString settings;
    for (int i = 0; i < kSettings; ++i)
        settings += QString::fromLatin1(kKinds[i % kKindCount]).arg(i);
    return QStringLiteral("<?xml version=\"1.0\"?><root><PrinterSettingsInfo><G TYPE=\"GROUP\">"
                          "%1</G></PrinterSettingsInfo></root>")
        .arg(settings);
}

QWidget* box(QWidget* parent, const QString& caption, QWidget** labelOut)
{
    auto* box = new QWidget(parent);
    auto* layout = new QHBoxLayout(box);
    layout->setSpacing(15);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(caption, box);
    layout->addWidget(label, 1);
    *labelOut = label;
    return box;
}

void addInput(QWidget* box, QWidget* label, QWidget* input)
{
    static_cast<QHBoxLayout*>(box->layout())->addWidget(input, 1);
    static_cast<QLabel*>(label)->setBuddy(input);
}

// The same widgets as the element controls, built directly.
QWidget* bareWidget(int i, QWidget* parent)
{
    QWidget* label = nullptr;
    const QString caption = QStringLiteral("&Setting %1").arg(i);
    switch (i % kKindCount) {
    case 0: {
        QWidget* b = box(parent, QString(), &label);
        auto* check = new QCheckBox(caption, b);
        check->setChecked(true);
        addInput(b, label, check);
        return b;
    }
    case 1: {
        QWidget* b = box(parent, caption, &label);
        auto* group = new QGroupBox(b);
        auto* layout = new QVBoxLayout(group);
        layout->setSpacing(19);
        auto* buttons = new QButtonGroup(group);
        for (const char* id : {"A", "B", "C"}) {
            auto* radio = new QRadioButton(QString::fromLatin1(id), group);
            layout->addWidget(radio);
            buttons->addButton(radio, qChecksum(QByteArray(id)));
        }
        buttons->button(qChecksum(QByteArray("B")))->setChecked(true);
        addInput(b, label, group);
        return b;
    }
    case 2: {
        QWidget* b = box(parent, caption, &label);
        auto* combo = new QComboBox(b);
        combo->addItems({"A", "B", "C", "D", "E"});
        combo->setCurrentIndex(2);
        addInput(b, label, combo);
        return b;
    }
    case 3: {
        QWidget* b = box(parent, caption, &label);
        auto* spin = new QSpinBox(b);
        spin->setRange(0, 99);
        spin->setValue(5);
        addInput(b, label, spin);
        return b;
    }
    case 4: {
        QWidget* b = box(parent, caption, &label);
        auto* spin = new QDoubleSpinBox(b);
        spin->setRange(0, 9);
        spin->setDecimals(2);
        spin->setValue(1.5);
        addInput(b, label, spin);
        return b;
    }
    case 5:
    case 6: {
        QWidget* b = box(parent, caption, &label);
        auto* edit = new QLineEdit(QStringLiteral("text"), b);
        edit->setValidator(new QRegularExpressionValidator(
            QRegularExpression(i % kKindCount == 5 ? kEditPattern : kAddressPattern), edit));
        addInput(b, label, edit);
        return b;
    }
    case 7: {
        QWidget* b = box(parent, caption, &label);
        auto* editor = new QDateTimeEdit(b);
        editor->setDisplayFormat(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        editor->setDateTime(QDateTime(QDate(2026, 1, 2), QTime(3, 4), Qt::UTC));
        addInput(b, label, editor);
        return b;
    }
    case 8: {
        QWidget* b = box(parent, QString(), &label);
        addInput(b, label, new QPushButton(caption, b));
        return b;
    }
    default: {
        auto* text = new QLabel(caption, parent);
        text->setWordWrap(true);
        return text;
    }
    }
}

double milliseconds(const std::function<void()>& body)
{
    const auto start = std::chrono::steady_clock::now();
    body();
    const std::chrono::duration<double, std::milli> spent =
        std::chrono::steady_clock::now() - start;
    return spent.count();
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    SettingsParser parser;
    parser.setContent(specification());
    parser.readPrinterSettings();
    auto* group = qobject_cast<ComplexElement*>(parser.findElement("G"));
    if (!group || group->elements().size() != kSettings) {
        std::fprintf(stderr, "bench_controls: the group of %d settings was not read\n", kSettings);
        return 1;
    }

    QWidget panel;
    auto* layout = new QVBoxLayout(&panel);
    const auto withElements = [&] {
        for (Element* element : group->elements())
            layout->addWidget(element->createControl(&panel));
        for (Element* element : group->elements())
            element->deleteControl();
    };
    const auto withBareWidgets = [&] {
        QList<QWidget*> widgets;
        widgets.reserve(kSettings);
        for (int i = 0; i < kSettings; ++i) {
            widgets.append(bareWidget(i, &panel));
            layout->addWidget(widgets.last());
        }
        qDeleteAll(widgets);
    };
    // Alternating rounds, so that neither side profits from a warmer process.
    double elements = 1e300;
    double bare = 1e300;
    for (int round = 0; round < kRounds; ++round) {
        // Layout requests pile up without an event loop and make every later deletion
        // search a longer queue; empty it between measurements.
        QCoreApplication::sendPostedEvents();
        elements = std::min(elements, milliseconds(withElements));
        QCoreApplication::sendPostedEvents();
        bare = std::min(bare, milliseconds(withBareWidgets));
    }

    std::printf("controls of %d mixed settings, created and deleted (best of %d):\n", kSettings,
                kRounds);
    std::printf("  element controls  %8.2f ms\n", elements);
    std::printf("  bare Qt widgets   %8.2f ms\n", bare);
    std::printf("  ratio             %8.2fx (target <= 1.5x)\n", elements / bare);
    return 0;
}
