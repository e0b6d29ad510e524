#pragma once

#include <QByteArray>
#include <QString>

// The command blocks the ink maintenance wizards write to the printer's data channel, and
// the replies the printer gives to the one that asks for an answer. Both sides (the program
// and the virtual printer) take every byte from here.
//
// A block, all ASCII so that it never holds the escape byte that opens a settings request:
//
//   offset 0  4 bytes  marker "@TIJ"
//   offset 4  4 bytes  action tag (below)
//   offset 8  1 byte   parameter count n, the digit '0'..'9'
//   offset 9  n bytes  parameters
//
// On the wire every block follows kPaddingSize zero bytes, which end whatever the printer's
// parser was in the middle of.
//
// Actions and their parameters:
//   "TPAG"  print the test page                              none
//   "CLEN"  clean the cartridges                             none
//   "ASFP"  print the alignment page to choose patterns on   '1' photo cartridge in, '0' not
//   "ASET"  set the alignment                                one pattern letter per row,
//                                                            'A'..'E' (3 rows, 5 with photo ink)
//   "AMFP"  print the alignment page for the scanner         none
//   "ASCN"  scan the alignment page on the glass and align   none; answered with kScanDone
//                                                            or kScanFailed
class InkCommands
{
public:
    static constexpr int kPaddingSize = 16;
    static constexpr char kMarker[] = "@TIJ";
    static constexpr int kMarkerSize = 4;
    static constexpr int kTagSize = 4;
    static constexpr int kHeaderSize = kMarkerSize + kTagSize + 1;
    static constexpr int kMaxParameters = 9;

    static constexpr char kTestPage[] = "TPAG";
    static constexpr char kClean[] = "CLEN";
    static constexpr char kAlignPage[] = "ASFP";
    static constexpr char kAlignChoice[] = "ASET";
    static constexpr char kScanPage[] = "AMFP";
    static constexpr char kScanAlign[] = "ASCN";

    static constexpr int kReplySize = 8;
    static constexpr char kScanDone[] = "@TIJDONE";
    static constexpr char kScanFailed[] = "@TIJFAIL";

    // Alignment patterns are lettered from 'A'; the one in the middle is the factory choice.
    static constexpr int kPatternCount = 5;
    static constexpr char kFirstPattern = 'A';
    static int alignmentRows(bool photoInk) { return photoInk ? 5 : 3; }

    static QByteArray testPage();
    static QByteArray clean();
    static QByteArray alignmentPage(bool photoInk);
    // One letter per row; empty when a letter is out of range or the row count is wrong.
    static QByteArray alignmentChoice(const QByteArray& patterns, bool photoInk);
    static QByteArray scanPage();
    static QByteArray scanAlign();

    // A block with the given tag and parameters; empty when the parameters do not fit.
    static QByteArray block(const char* tag, const QByteArray& parameters = QByteArray());

    // The action's name in the printer's log ("test page", ...); empty for an unknown tag.
    static QString actionName(const QByteArray& tag);
};
