#include <QDomDocument>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>

// The other yardstick of the start-up benchmark: one DOM parse of a file in a fresh process,
// as a program meets it at start. Prints the milliseconds it took.
int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    QFile file(QFile::decodeName(argv[1]));
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    const QByteArray text = file.readAll();
    QElapsedTimer clock;
    clock.start();
    QDomDocument document;
    if (!document.setContent(text))
        return 1;
    std::printf("%.3f\n", clock.nsecsElapsed() / 1e6);
    return 0;
}
