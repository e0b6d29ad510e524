#include "../xml/SpecText.h"

#include "ListElement.h"
#include "Parameter.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>

// The controls of the choice settings: what each kind builds, how a choice made with the mouse
// or the keyboard reaches the value, and that programmatic values stay silent.
class TestListControls : public QObject
{
    Q_OBJECT

private:
    static ListElement* list(SettingsParser& parser)
    {
        return qobject_cast<ListElement*>(parser.findElement("L"));
    }
    static QRadioButton* radio(QWidget* panel, const char* id)
    {
        return panel->findChild<QRadioButton*>(QString::fromLatin1(id));
    }

private slots:
    void layout_data();
    void layout();
    void initialSelection_data();
    void initialSelection();
    void radioByMouseAndArrows();
    void setControlValueIsSilent_data();
    void setControlValueIsSilent();
    void refreshControlFollowsVisibility();
};

void TestListControls::layout_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("inputClass");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("vertical");
    QTest::newRow("check box") << "CHECKBOX"
                               << "QCheckBox"
                               << "" << int(Qt::AlignVCenter);
    QTest::newRow("radio") << "RADIOBUTTON"
                           << "QGroupBox"
                           << "&Duplex" << int(Qt::AlignTop);
    QTest::newRow("combo") << "COMBOBOX"
                           << "QComboBox"
                           << "&Duplex" << int(Qt::AlignVCenter);
    QTest::newRow("paper") << "PAPERSIZE"
                           << "QComboBox"
                           << "&Duplex" << int(Qt::AlignVCenter);
}

void TestListControls::layout()
{
    QFETCH(QString, type);
    QFETCH(QString, inputClass);
    QFETCH(QString, caption);
    QFETCH(int, vertical);
    const auto parser = SpecText::read(
        QStringLiteral("<L TYPE=\"%1\" STRING=\"Duplex\" CURRENT=\"B\"><A/><B/></L>").arg(type));
    QWidget panel;
    QWidget* box = list(*parser)->createControl(&panel);
    QCOMPARE(box->objectName(), QString("hbox"));
    auto* hbox = qobject_cast<QHBoxLayout*>(box->layout());
    QVERIFY(hbox);
    QCOMPARE(hbox->spacing(), 15);
    auto* label = box->findChild<QLabel*>("label");
    QCOMPARE(label->text(), caption);
    QCOMPARE(int(label->alignment()), int(Qt::AlignRight) | vertical);
    QWidget* input = list(*parser)->control();
    QCOMPARE(input->metaObject()->className(), inputClass.toLatin1());
    QCOMPARE(hbox->stretch(hbox->indexOf(label)), 1);
    QCOMPARE(hbox->stretch(hbox->indexOf(input)), 1);
    QCOMPARE(input->accessibleName(), QString("Duplex"));
    if (!caption.isEmpty())
        QCOMPARE(label->buddy(), input);
}

void TestListControls::initialSelection_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("shown");
    // The check box is on only for the second visible parameter.
    QTest::newRow("check on") << "CHECKBOX"
                              << "CURRENT=\"B\""
                              << "on";
    QTest::newRow("check unknown") << "CHECKBOX"
                                   << "CURRENT=\"X\""
                                   << "off";
    QTest::newRow("radio current") << "RADIOBUTTON"
                                   << "CURRENT=\"B\" FACTORY=\"A\""
                                   << "B";
    QTest::newRow("radio factory") << "RADIOBUTTON"
                                   << "CURRENT=\"X\" FACTORY=\"A\""
                                   << "A";
    QTest::newRow("radio none") << "RADIOBUTTON"
                                << "CURRENT=\"X\" FACTORY=\"Y\""
                                << "";
    QTest::newRow("combo current") << "COMBOBOX"
                                   << "CURRENT=\"B\""
                                   << "1";
    QTest::newRow("combo unknown") << "COMBOBOX"
                                   << "CURRENT=\"X\""
                                   << "0";
}

void TestListControls::initialSelection()
{
    QFETCH(QString, type);
    QFETCH(QString, attributes);
    QFETCH(QString, shown);
    const auto parser =
        SpecText::read(QStringLiteral("<L TYPE=\"%1\" %2><A/><B/></L>").arg(type, attributes));
    QWidget panel;
    ListElement* element = list(*parser);
    element->createControl(&panel);
    QString actual;
    if (auto* box = qobject_cast<QCheckBox*>(element->control())) {
        actual = box->isChecked() ? "on" : "off";
    } else if (auto* combo = qobject_cast<QComboBox*>(element->control())) {
        actual = QString::number(combo->currentIndex());
    } else {
        const QAbstractButton* checked =
            element->control()->findChild<QButtonGroup*>()->checkedButton();
        actual = checked ? checked->objectName() : QString("");
    }
    QCOMPARE(actual, shown);
    QCOMPARE(element->current(), attributes.section('"', 1, 1));
}

void TestListControls::radioByMouseAndArrows()
{
    const auto parser = SpecText::read("<L TYPE=\"RADIOBUTTON\" CURRENT=\"A\"><A/><B/><C/></L>");
    QWidget panel;
    ListElement* element = list(*parser);
    element->createControl(&panel);
    auto* group = element->control()->findChild<QButtonGroup*>();
    QCOMPARE(element->control()->layout()->spacing(), 19);
    QVERIFY(group->exclusive());
    QCOMPARE(group->id(radio(&panel, "B")), int(qChecksum(QByteArray("B"))));
    panel.show();
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    QTest::mouseClick(radio(&panel, "C"), Qt::LeftButton);
    QCOMPARE(element->current(), QString("C"));
    QCOMPARE(spy.count(), 1);
    panel.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    radio(&panel, "C")->setFocus();
    QTest::keyClick(radio(&panel, "C"), Qt::Key_Up);
    QCOMPARE(element->current(), QString("B"));
    QCOMPARE(spy.count(), 2);
}

void TestListControls::setControlValueIsSilent_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("check box") << "CHECKBOX";
    QTest::newRow("radio") << "RADIOBUTTON";
    QTest::newRow("combo") << "COMBOBOX";
}

void TestListControls::setControlValueIsSilent()
{
    QFETCH(QString, type);
    const auto parser =
        SpecText::read(QStringLiteral("<L TYPE=\"%1\" CURRENT=\"A\"><A/><B/></L>").arg(type));
    QWidget panel;
    ListElement* element = list(*parser);
    element->createControl(&panel);
    panel.show();
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    element->setControlValue("B");
    QCOMPARE(spy.count(), 0);
    QCOMPARE(element->current(), QString("A"));
    // The control shows B and still reports the user's next choice, once.
    if (auto* box = qobject_cast<QCheckBox*>(element->control())) {
        QVERIFY(box->isChecked());
        QTest::mouseClick(box, Qt::LeftButton);
        QCOMPARE(element->current(), QString("A"));
    } else if (auto* combo = qobject_cast<QComboBox*>(element->control())) {
        QCOMPARE(combo->currentIndex(), 1);
        QTest::keyClick(combo, Qt::Key_Up);
        QCOMPARE(element->current(), QString("A"));
    } else {
        QVERIFY(radio(&panel, "B")->isChecked());
        QTest::mouseClick(radio(&panel, "A"), Qt::LeftButton);
        QCOMPARE(element->current(), QString("A"));
    }
    QCOMPARE(spy.count(), 1);
}

void TestListControls::refreshControlFollowsVisibility()
{
    const auto parser = SpecText::read("<L TYPE=\"COMBOBOX\" CURRENT=\"C\"><A/><B/><C/></L>");
    QWidget panel;
    ListElement* element = list(*parser);
    element->createControl(&panel);
    auto* combo = qobject_cast<QComboBox*>(element->control());
    QSignalSpy spy(element, &ConcreteElement::valueChanged);
    element->parameters().at(0)->setVisible(false);
    element->refreshControl();
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->currentText(), QString("C"));
    QCOMPARE(spy.count(), 0);
}

QTEST_MAIN(TestListControls)
#include "TestListControls.moc"
