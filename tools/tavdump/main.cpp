#include "TreeDump.h"
#include "app/Log.h"
#include "xml/SettingsParser.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

// Prints the element tree of a settings specification file, one line per element. Diagnostic
// lines of the reader go to standard error as in the program.
int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "Usage: tavdump <file>\n");
        return 2;
    }
    const QString fileName = QFile::decodeName(argv[1]);
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "tavdump: cannot read '%s': %s\n", argv[1],
                     qPrintable(file.errorString()));
        return 1;
    }
    SettingsParser parser;
    if (!parser.setContent(file.read(DomParser::kMaxDocumentBytes + 1))) {
        std::fprintf(stderr, "tavdump: '%s' is not a readable XML document\n", argv[1]);
        return 1;
    }
    if (!parser.readPrinterSettings()) {
        std::fprintf(stderr, "tavdump: '%s' holds no settings under %s\n", argv[1],
                     qPrintable(parser.getCurrentPath()));
        return 1;
    }
    parser.readDependencies();
    for (const QString& line : TreeDump::lines(parser.root()))
        std::printf("%s\n", qPrintable(line));
    return 0;
}
