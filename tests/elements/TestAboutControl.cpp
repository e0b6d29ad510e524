#include "../xml/SpecText.h"

#include "AboutElement.h"
#include "AboutInfo.h"

#include <QLabel>
#include <QPixmap>
#include <QtTest>

// The about block: the program's record and the device's own text.
class TestAboutControl : public QObject
{
    Q_OBJECT

private slots:
    void shown_data()
    {
        QTest::addColumn<bool>("withRecord");
        QTest::addColumn<QString>("aboutText");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("record and text")
            << true << "Firmware 7"
            << QStringList({"Model X", "Tavolor", "Version 2.03.11", "(c) 2026", "Firmware 7"});
        QTest::newRow("record only")
            << true << "" << QStringList({"Model X", "Tavolor", "Version 2.03.11", "(c) 2026"});
        QTest::newRow("device text only") << false << "Firmware 7" << QStringList({"Firmware 7"});
    }

    void shown()
    {
        QFETCH(bool, withRecord);
        QFETCH(QString, aboutText);
        QFETCH(QStringList, texts);
        const auto parser = SpecText::read(
            QString("<Info TYPE='ABOUT' STRING='About'><About>%1</About></Info>").arg(aboutText));
        auto* about = qobject_cast<AboutElement*>(parser->findElement("AboutElement"));
        QPixmap logo(8, 4);
        logo.fill(Qt::blue);
        if (withRecord)
            about->setAboutInfo(
                AboutInfo("Model X", "Tavolor", Version(2, 3, 11), "(c) 2026", logo));
        QWidget panel;
        QWidget* control = about->createControl(&panel);
        QCOMPARE(control, about->control());
        QStringList shown;
        for (const QLabel* label : control->findChildren<QLabel*>()) {
            if (label->objectName() != QLatin1String("logoLabel"))
                shown.append(label->text());
        }
        QCOMPARE(shown, texts);
        const auto* logoLabel = control->findChild<QLabel*>("logoLabel");
        QCOMPARE(logoLabel->isHidden(), !withRecord);
        if (withRecord)
            QCOMPARE(logoLabel->pixmap().size(), QSize(8, 4));
        about->deleteControl();
        QVERIFY(panel.findChildren<QWidget*>().isEmpty());
    }
};

QTEST_MAIN(TestAboutControl)
#include "TestAboutControl.moc"
