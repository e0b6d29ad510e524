#include "app/SettingsEdit.h"
#include "cli/CtlSource.h"
#include "cli/CtlTree.h"
#include "elements/Element.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

// A setting named "Twice" in every place the reader passes over or nests; the tree finds
// the one in the form.
const char kNested[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<root><PrinterSettingsInfo>
<Off SUPPORTED="FALSE"><Twice TYPE="INTEGER" CURRENT="1"/></Off>
<Odd TYPE="NOSUCHKIND"><Twice TYPE="INTEGER" CURRENT="2"/></Odd>
<List TYPE="COMBOBOX" CURRENT="b"><a/><b/><Twice TYPE="INTEGER" CURRENT="3"/></List>
<Group><!-- --><Form TYPE="POPUP"><Twice TYPE="INTEGER" CURRENT="4"/></Form></Group>
<Twice TYPE="INTEGER" CURRENT="5"/><Name TYPE="EDITBOX" CURRENT="a&amp;b&#x42;"/>
</PrinterSettingsInfo></root>)";

QString share()
{
    return QStringLiteral(TAV_BIN_DIR "/../share");
}

bool collect(Element* element, void* ids)
{
    static_cast<QStringList*>(ids)->append(element->id());
    return true;
}

} // namespace

// tavctl get reads a setting from its own markup where it can; the answer must be the one
// the whole tree gives, read with its rules as show reads it.
class TestSettingLookup : public QObject
{
    Q_OBJECT

    QTemporaryDir folder;

private slots:
    void sameAsTheWholeTree_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("id");
        QFile nested(folder.filePath("nested.xml"));
        QVERIFY(nested.open(QIODevice::WriteOnly) && nested.write(kNested) > 0);
        nested.close();
        for (const QString& file :
             {QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml"),
              QStringLiteral(TAV_DATA_DIR "/inkjet_mfp.xml"), nested.fileName()}) {
            CtlSource whole(share(), file, CtlSource::SpecificationFile, QString());
            QCOMPARE(whole.load(CtlSource::Tree), csDone);
            QStringList ids{QStringLiteral("Off"), QStringLiteral("Nonsense")};
            whole.parser().enumerateElements(collect, &ids);
            for (const QString& id : std::as_const(ids))
                QTest::addRow("%s %s", qPrintable(QFileInfo(file).baseName()), qPrintable(id))
                    << file << id;
        }
    }

    void sameAsTheWholeTree()
    {
        QFETCH(QString, file);
        QFETCH(QString, id);
        CtlSource whole(share(), file, CtlSource::SpecificationFile, QString());
        QCOMPARE(whole.load(CtlSource::TreeWithRules), csDone);
        SettingsEdit evaluated(whole.parser());
        CtlSource part(share(), file, CtlSource::SpecificationFile, QString());
        QCOMPARE(part.load(CtlSource::DocumentOnly), csDone);
        QCOMPARE(part.readSettings({id}), csDone);
        const Element* expected = whole.parser().findElement(id);
        QCOMPARE(part.lookup(id) != nullptr, expected != nullptr);
        if (expected)
            QCOMPARE(CtlTree::valueOf(part.lookup(id)), CtlTree::valueOf(expected));
    }

    // Plain settings come from their markup; what the reader repairs, names or translates
    // while it reads the whole tree, or a dependency may change, does not.
    void markupOnlyWhereItSuffices_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("markup");
        QTest::newRow("number") << "SleepTimer" << true;
        QTest::newRow("emptied at load") << "DepartmentName" << true;
        QTest::newRow("list") << "DisplayLanguage" << true;
        QTest::newRow("absent") << "Nonsense" << true;
        QTest::newRow("declared dependency") << "IPAddress" << false;
        QTest::newRow("merged dependency") << "TopMargin" << false;
        QTest::newRow("table cell") << "TrayConfiguration.1.1" << false;
        QTest::newRow("text") << "ModelName" << false;
    }

    void markupOnlyWhereItSuffices()
    {
        QFETCH(QString, id);
        QFETCH(bool, markup);
        CtlSource part(share(), TAV_DATA_DIR "/laser_mfp.xml", CtlSource::SpecificationFile, "");
        QCOMPARE(part.load(CtlSource::DocumentOnly), csDone);
        QCOMPARE(part.readSettings({id}), csDone);
        QCOMPARE(part.fromMarkup(), markup);
    }

    void truncatedDocumentIsRefused()
    {
        QFile sample(TAV_DATA_DIR "/laser_mfp.xml");
        QFile cut(folder.filePath("cut.xml"));
        QVERIFY(sample.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly));
        cut.write(sample.read(sample.size() - 40));
        cut.close();
        CtlSource part(share(), cut.fileName(), CtlSource::SpecificationFile, QString());
        QCOMPARE(part.load(CtlSource::DocumentOnly), csDone);
        QCOMPARE(part.readSettings({QStringLiteral("SleepTimer")}), csUnreachable);
    }
};

QTEST_GUILESS_MAIN(TestSettingLookup)
#include "TestSettingLookup.moc"
