#include "app/ProgramPaths.h"

#include "app/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

QString applicationFilePath()
{
    static const QString path = [] {
        const QString link = QStringLiteral("/proc/%1/exe").arg(getpid());
        const QString resolved = QFileInfo(link).canonicalFilePath();
        TAV_LOG(10, "_applicationFilePath='%s'", QFile::encodeName(resolved).constData());
        return resolved;
    }();
    return path;
}

QString programDirFromArgument(const QByteArray& argv0, const QByteArray& pathVariable)
{
    const QString name = QFile::decodeName(argv0);
    QString path;
    if (name.startsWith(QLatin1Char('/'))) {
        path = name;
    } else if (!name.contains(QLatin1Char('/'))) {
        const QStringList entries = QFile::decodeName(pathVariable).split(QLatin1Char(':'));
        for (const QString& entry : entries) {
            const QString candidate = QDir(entry + QLatin1Char('/') + name).absolutePath();
            if (QFileInfo::exists(candidate)) {
                path = candidate;
                break;
            }
        }
    } else {
        path = QDir(name).absolutePath();
    }
    if (path.isEmpty())
        return QString();
    return QDir::cleanPath(QFileInfo(path).absolutePath());
}

QString resolveProgramPath(const QString& programDir, const QString& name)
{
    if (name.isEmpty())
        return programDir;
    if (name.startsWith(QLatin1String("./")))
        return programDir + name.mid(1);
    return QDir::cleanPath(programDir + QLatin1Char('/') + name);
}
