#include "ui/HelpViewer.h"

#include "app/Log.h"
#include "app/ProgramPaths.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLocale>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

HelpViewer::HelpViewer(QWidget* parent)
    : QDialog(parent)
    , _browser(new QTextBrowser(this))
{
    setObjectName(QStringLiteral("helpViewer"));
    setWindowTitle(tr("Help"));
    resize(560, 520);
    _browser->setOpenExternalLinks(false);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_browser);
    layout->addWidget(buttons);

    const QString file = helpFile();
    if (file.isEmpty())
        _browser->setPlainText(tr("The help page is not installed."));
    else
        _browser->setSource(QUrl::fromLocalFile(file));
}

// The page in the user's language when there is one, else the English page.
QString HelpViewer::helpFile()
{
    const QString folder = resolveProgramPath(QFileInfo(applicationFilePath()).absolutePath(),
                                              QStringLiteral("../share/help"));
    const QString language = QLocale::system().name().left(2);
    for (const QString& name :
         {QStringLiteral("index_%1.html").arg(language), QStringLiteral("index.html")}) {
        const QString path = folder + QLatin1Char('/') + name;
        if (QFileInfo::exists(path))
            return path;
    }
    TAV_LOG(9, "help page not found in '%s'", qPrintable(folder));
    return QString();
}

void HelpViewer::showHelp(QWidget* parent)
{
    HelpViewer viewer(parent);
    viewer.exec();
}
