#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTest>

// The virtual printer program serving a specification on a pseudo-terminal, reachable
// through a stable link; stopped with the object.
class VirtualPrinterProcess
{
public:
    VirtualPrinterProcess(const QString& specification, const QString& folder,
                          const QStringList& faults = {})
        : link(folder + QStringLiteral("/lp0"))
        , state(folder + QStringLiteral("/state.xml"))
    {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QStringLiteral(TAV_BIN_DIR "/tav-vprinter"),
                      QStringList{specification, QStringLiteral("--state"), state,
                                  QStringLiteral("--link"), link} +
                          faults);
        for (int i = 0; i < 200 && !QFile::exists(link); ++i)
            QTest::qWait(10);
    }
    ~VirtualPrinterProcess()
    {
        process.terminate();
        if (!process.waitForFinished(3000))
            process.kill();
    }

    bool isReady() const { return QFile::exists(link); }

    QByteArray stateText() const
    {
        QFile file(state);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const QString link;
    const QString state;

private:
    QProcess process;
};
