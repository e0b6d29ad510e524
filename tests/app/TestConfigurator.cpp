#include "../elements/Rows.h"
#include "StderrCapture.h"
#include "app/Configurator.h"
#include "elements/ConcreteElement.h"
#include "elements/Element.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const char kSpecification[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<root><PrinterSettingsInfo>
  <General STRING="General">
    <SleepTimer TYPE="INTEGER" STRING="Sleep timer" CURRENT="5" FACTORY="15" MIN="1" MAX="240"/>
    <Location TYPE="EDITBOX" STRING="Standort" CURRENT="Empfang Büro">
      <AllowedCharacters SymbolSet="MultiLanguage"/>
    </Location>
  </General>
</PrinterSettingsInfo></root>
)";

QString translation(const char* title)
{
    return QString("<root><Translation><message><Id>SleepTimer</Id><Value>%1</Value></message>"
                   "</Translation></root>")
        .arg(QString::fromUtf8(title));
}

void write(const QString& path, const QByteArray& text)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// A program folder as installed: <root>/bin beside <root>/share.
struct Installation
{
    QTemporaryDir root;
    QString bin() const { return root.filePath("bin"); }
    QString share(const QString& name) const { return root.filePath("share/" + name); }
    Installation()
    {
        QDir().mkpath(bin());
        write(bin() + "/tav.xml", kSpecification);
    }
};

const char kDevName[] = "Office Laser 9";

} // namespace

class TestConfigurator : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { qunsetenv("LC_ALL"); }

    // "use_local_tav" reads ./tav.xml; "save_tav" keeps the bytes read beside the program.
    void localSpecification()
    {
        Installation install;
        Configurator configurator(install.bin(), "/dev/null", kDevName, true, false, true, false);
        Element* root = configurator.getPrinterSettings();
        QVERIFY(root);
        QCOMPARE(root->id(), QString("PrinterSettingsInfo"));
        QCOMPARE(read(install.bin() + "/tav(Office Laser 9).xml"), QByteArray(kSpecification));
        // Decoded by the document's own encoding, not byte by byte.
        auto* location = qobject_cast<ConcreteElement*>(root->findElement("Location"));
        QVERIFY(location);
        QCOMPARE(location->current(), QString("Empfang B\u00fcro"));

        QFile::remove(install.bin() + "/tav.xml");
        Configurator missing(install.bin(), "/dev/null", kDevName, true, false, true, false);
        StderrCapture capture;
        QVERIFY(!missing.getPrinterSettings());
        QVERIFY(capture.text().contains("Cannot open file: '" + QFile::encodeName(install.bin()) +
                                        "/tav.xml'\n"));
        QVERIFY(!missing.rootElement());
    }

    void translationChoice_data()
    {
        columns<QByteArray, QStringList, QString>({"locale", "folders", "title"});
        QTest::newRow("German folder")
            << QByteArray("de_DE.UTF-8") << QStringList{"de", "en"} << "Ruhezustand nach";
        QTest::newRow("no German folder, English")
            << QByteArray("de_DE.UTF-8") << QStringList{"en"} << "Sleep after";
        QTest::newRow("POSIX locale, English")
            << QByteArray("C") << QStringList{"de", "en"} << "Sleep after";
        QTest::newRow("nothing, untranslated")
            << QByteArray("de_DE.UTF-8") << QStringList() << "Sleep timer";
    }

    void translationChoice()
    {
        const auto [locale, folders, title] = fetch<QByteArray, QStringList, QString>();
        Installation install;
        for (const QString& folder : folders) {
            const char* text = folder == QLatin1String("de") ? "Ruhezustand nach" : "Sleep after";
            write(install.share(QString("translation/%1/tav_%1.xml").arg(folder)),
                  translation(text).toUtf8());
        }
        qputenv("LC_ALL", locale);
        Configurator configurator(install.bin(), "/dev/null", kDevName, true, false, false, false);
        StderrCapture capture;
        Element* root = configurator.getPrinterSettings();
        const QByteArray log = capture.text();
        QVERIFY(root);
        QCOMPARE(root->findElement("SleepTimer")->title(), title);
        if (folders.isEmpty())
            QVERIFY2(log.contains("translation/en doesn't exist!!! \n"), log.constData());
    }

    void capabilities_data()
    {
        columns<bool, bool, bool>({"listed", "network", "ids"});
        QTest::newRow("listed with flags off") << true << false << false;
        QTest::newRow("no list, every feature") << false << true << true;
    }

    void capabilities()
    {
        const auto [listed, network, ids] = fetch<bool, bool, bool>();
        Installation install;
        if (listed)
            write(install.share("capabilities.xml"),
                  "<root><Devices><M NAME=\"Office Laser 9\" NETWORK=\"FALSE\" "
                  "IDS=\"False\"/></Devices></root>");
        Configurator configurator(install.bin(), "/dev/null", "Office_Laser_9", true, false, false,
                                  false);
        QCOMPARE(configurator.capabilities().network, network);
        QCOMPARE(configurator.capabilities().ids, ids);
        QVERIFY(configurator.capabilities().buyNowButton);
    }
};

QTEST_MAIN(TestConfigurator)
#include "TestConfigurator.moc"
