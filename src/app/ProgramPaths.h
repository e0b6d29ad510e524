#pragma once

#include <QByteArray>
#include <QString>

// The canonical path of this process's executable, read from /proc once and then cached.
QString applicationFilePath();

// The folder of the program as named by argv[0]: an absolute name as it stands, a bare name
// searched along PATH, any other relative name against the current directory.
QString programDirFromArgument(const QByteArray& argv0, const QByteArray& pathVariable);

// A file name of the program resolved against its folder: empty gives the folder itself,
// "./name" the folder followed by "/name", anything else the cleaned folder + "/" + name.
QString resolveProgramPath(const QString& programDir, const QString& name);
