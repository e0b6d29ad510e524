#pragma once

#include <QDir>
#include <QElapsedTimer>
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
    return env;
}

// Starts the program and waits until it ends. With `until`, the program is stopped as soon as
// that text appears on its standard error: past that point it shows a window and would wait
// for a user. Waits at most 30 s either way.
inline Run run(const QStringList& arguments, const QByteArray& until = QByteArray(),
               const QString& program = path(), const QProcessEnvironment& env = environment())
{
    QProcess process;
    process.setProcessEnvironment(env);
    process.setWorkingDirectory(QDir::tempPath());
    process.start(program, arguments);
    Run result;
    QElapsedTimer clock;
    clock.start();
    while (!process.waitForFinished(20)) {
        result.err += process.readAllStandardError();
        if (process.state() != QProcess::Running && process.error() == QProcess::FailedToStart)
            return result;
        const bool seen = !until.isEmpty() && result.err.contains(until);
        if (seen || clock.elapsed() > 30000) {
            process.kill();
            process.waitForFinished(5000);
            result.status = seen ? Run::kStopped : Run::kNotFinished;
            result.err += process.readAllStandardError();
            result.out = process.readAllStandardOutput();
            return result;
        }
    }
    result.status =
        process.exitStatus() == QProcess::NormalExit ? process.exitCode() : Run::kCrashed;
    result.out = process.readAllStandardOutput();
    result.err += process.readAllStandardError();
    return result;
}

} // namespace TavProcess
