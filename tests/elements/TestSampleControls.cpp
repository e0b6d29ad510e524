#include "ComplexElement.h"
#include "ElementType.h"
#include "MnemonicRegistry.h"
#include "SettingsParser.h"

#include <QAbstractButton>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>
#include <QtTest>

namespace {

void collectGroups(Element* element, QList<ComplexElement*>* groups)
{
    auto* group = qobject_cast<ComplexElement*>(element);
    if (!group)
        return;
    if (group->type() != etForm)
        groups->append(group);
    for (Element* child : group->elements())
        collectGroups(child, groups);
}

// The mnemonic letters of a panel's visible captions, buttons and group boxes.
QStringList mnemonics(const QWidget* panel)
{
    QStringList texts;
    for (const QLabel* label : panel->findChildren<QLabel*>()) {
        if (label->buddy() && label->isVisibleTo(panel->window()))
            texts.append(label->text());
    }
    for (const QAbstractButton* button : panel->findChildren<QAbstractButton*>())
        texts.append(button->text());
    for (const QGroupBox* box : panel->findChildren<QGroupBox*>())
        texts.append(box->title());
    QStringList found;
    for (const QString& text : std::as_const(texts)) {
        const QChar key = MnemonicRegistry::mnemonicOf(text);
        if (!key.isNull())
            found.append(key);
    }
    return found;
}

} // namespace

// Every group of the sample specifications shown as the settings dialog shows it: each setting
// gets a real control, the captions of one panel never share a mnemonic, and leaving the panel
// removes every widget.
class TestSampleControls : public QObject
{
    Q_OBJECT

private slots:
    void everyGroup_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("laser") << QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml");
        QTest::newRow("inkjet") << QStringLiteral(TAV_DATA_DIR "/inkjet_mfp.xml");
    }
    void everyGroup()
    {
        QFETCH(QString, path);
        SettingsParser parser;
        QFile file(path);
        QVERIFY(parser.open(&file));
        parser.readPrinterSettings();
        QList<ComplexElement*> groups;
        collectGroups(parser.root(), &groups);
        QVERIFY(groups.size() > 3);
        int controls = 0;
        int marked = 0;
        for (ComplexElement* group : std::as_const(groups)) {
            QWidget panel;
            auto* layout = new QVBoxLayout(&panel);
            QList<Element*> shown;
            for (Element* child : group->elements()) {
                if (child->isComplex() && child->type() != etForm)
                    continue;
                QWidget* control = child->createControl(&panel);
                QVERIFY2(control && child->control(), qPrintable(child->id()));
                layout->addWidget(control);
                shown.append(child);
            }
            for (const QLabel* label : panel.findChildren<QLabel*>())
                QVERIFY2(label->text() != "Unknown control type", qPrintable(group->id()));
            const QStringList keys = mnemonics(&panel);
            QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
            controls += int(shown.size());
            marked += int(keys.size());
            for (Element* child : std::as_const(shown))
                child->deleteControl();
            QVERIFY2(panel.findChildren<QWidget*>().isEmpty(), qPrintable(group->id()));
        }
        QVERIFY(controls > 20);
        // Most captions have room for a letter.
        QVERIFY(marked > controls / 2);
    }
};

QTEST_MAIN(TestSampleControls)
#include "TestSampleControls.moc"
