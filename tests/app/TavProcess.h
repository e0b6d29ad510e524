#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

// Runs the built program as a process, the way the printing system starts it.
namespace TavProcess {

struct Run
{
    static constexpr int kNotFinished = -1;
    static constexpr int kCrashed = -2;
    static constexpr int kStopped = -3; // ended by the test once it had seen what it waited for

    int status = kNotFinished;
    QByteArray out;
    QByteArray err;
};

inline QString path()
{
    return QStringLiteral(TAV_BIN_DIR "/tav");
}

// Qt warns on standard error when the session has no runtime folder; give it one so that only
// the program's own lines are read.
inline QProcessEnvironment environment()
{
    static QTemporaryDir runtime;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
    // A user of its own who turned the review before sending off: Apply sends at once.
    static QTemporaryDir config;
    QDir(config.path()).mkpath(QStringLiteral("Tavolor"));
    QFile settings(config.filePath(QStringLiteral("Tavolor/tav.conf")));
    if (settings.open(QIODevice::WriteOnly))
        settings.write("[review]\nask=false\n");
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    return env;
}

// Starts the program and waits until it ends, keeping this process's events turning. With
// `until`, the program is stopped as soon as that text appears on its standard error: past
// that point it shows a window and would wait for a user. Waits at most 30 s either way.
inline Run run(const QStringList& arguments, const QByteArray& until = QByteArray())
{
    QProcess process;
    process.setProcessEnvironment(environment());
    process.setWorkingDirectory(QDir::tempPath());
    process.start(path(), arguments);
    Run result;
    QElapsedTimer clock;
    clock.start();
    bool seen = false;
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(20)) {
        QCoreApplication::processEvents();
        result.err += process.readAllStandardError();
        seen = !until.isEmpty() && result.err.contains(until);
        if (seen || clock.elapsed() > 30000) {
            process.kill();
            process.waitForFinished(5000);
            break;
        }
    }
    if (seen)
        result.status = Run::kStopped;
    else if (process.error() != QProcess::FailedToStart && clock.elapsed() <= 30000)
        result.status =
            process.exitStatus() == QProcess::NormalExit ? process.exitCode() : Run::kCrashed;
    result.out = process.readAllStandardOutput();
    result.err += process.readAllStandardError();
    return result;
}

} // namespace TavProcess
