// A second instance for the single-instance tests: reports whether an instance with the
// given identifier runs and whether it took the message.
#include "app/QtSingleApplication.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    const QString id = QString::fromUtf8(argv[1]);
    const QString message = QString::fromUtf8(argv[2]);
    QtSingleApplication app(id, argc, argv);
    const bool running = app.isRunning();
    const bool sent = app.sendMessage(message, 5000);
    printf("running=%d sent=%d\n", running ? 1 : 0, sent ? 1 : 0);
    return 0;
}
