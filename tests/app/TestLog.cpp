#include "../elements/Rows.h"
#include "StderrCapture.h"
#include "app/Log.h"

#include <QRegularExpression>
#include <QTest>

#include <atomic>
#include <cstdlib>

// Counts heap allocations made while `counting` is set, through glibc's own allocator.
extern "C" void* __libc_malloc(size_t);
extern "C" void* __libc_calloc(size_t, size_t);
extern "C" void* __libc_realloc(void*, size_t);
namespace {
std::atomic<bool> counting{false};
std::atomic<int> allocations{0};
void note()
{
    if (counting.load(std::memory_order_relaxed))
        allocations.fetch_add(1, std::memory_order_relaxed);
}
} // namespace
extern "C" void* malloc(size_t size)
{
    note();
    return __libc_malloc(size);
}
extern "C" void* calloc(size_t n, size_t size)
{
    note();
    return __libc_calloc(n, size);
}
extern "C" void* realloc(void* p, size_t size)
{
    note();
    return __libc_realloc(p, size);
}

class TestLog : public QObject
{
    Q_OBJECT

private:
    static QByteArray logged(uint32_t level, const char* message)
    {
        StderrCapture capture;
        ::log(level, "someFunction", 42, "Some.cpp", "%s", message);
        return capture.text();
    }

private slots:
    void cleanup() { logLevel = kDefaultLogLevel; }

    // Every level's line at the default level, in one text: levels 10 and up are left out.
    void defaultLevel()
    {
        QByteArray all;
        for (uint level = 0; level < 12; ++level)
            all += logged(level, QByteArray::number(level).constData());
        QCOMPARE(all, QByteArray("0\nFATAL: 1\nEMERGENCY: 2\nALERT: 3\nCRITICAL: 4\nERROR: 5\n"
                                 "WARNING: 6\nNOTICE: 7\nINFO: 8\n9\n"));
    }

    void debugPrefix()
    {
        logLevel = kDebugLogLevel;
        const QByteArray line = logged(5, "broken");
        const QRegularExpression shape(
            QStringLiteral("^\\d{2}\\.\\d{2}:\\d{2}\\.\\d{3}\\|\\d+\\.[0-9A-F]+\\|Some\\.cpp:42\\|"
                           "someFunction\\| ERROR: broken\\n$"));
        QVERIFY2(shape.match(QString::fromLatin1(line)).hasMatch(), line.constData());
        QVERIFY(line.contains(QByteArray::number(getpid()) + '.'));
        // Detail shows up to level 11.
        QVERIFY(logged(11, "chatty").endsWith("| chatty\n"));
        QCOMPARE(logged(12, "too chatty"), QByteArray());
    }

    void bufferLimits_data()
    {
        columns<int, int, int>({"length", "printed", "overflow"});
        QTest::newRow("short") << 100 << 100 << 0;
        QTest::newRow("one short of exact") << 4095 << 4095 << 0;
        QTest::newRow("exact fit loses one, counts none") << 4096 << 4095 << 0;
        QTest::newRow("one over") << 4097 << 4095 << 1;
        QTest::newRow("far over") << 10000 << 4095 << 10000 - 4096;
    }

    void bufferLimits()
    {
        const auto [length, printed, overflow] = fetch<int, int, int>();
        const QByteArray message(length, 'x');
        const QByteArray line = logged(9, message.constData());
        QByteArray expected = message.left(printed);
        if (overflow)
            expected += "|mem_stream.overflow=" + QByteArray::number(overflow);
        expected += '\n';
        QCOMPARE(line, expected);
    }

    void overflowCountsPrefixToo()
    {
        logLevel = kDebugLogLevel;
        const QByteArray line = logged(9, QByteArray(5000, 'y').constData());
        const int prefixLength = int(line.indexOf('y'));
        QVERIFY(prefixLength > 0);
        const QByteArray suffix = "|mem_stream.overflow=";
        QVERIFY(line.contains(suffix));
        const int lost = line.mid(line.indexOf(suffix) + suffix.size()).trimmed().toInt();
        QCOMPARE(prefixLength + 5000 - 4096, lost);
        QCOMPARE(line.indexOf(suffix), 4095);
    }

    void noHeapAllocation_data()
    {
        columns<uint, uint>({"level", "threshold"});
        QTest::newRow("written") << 9u << kDefaultLogLevel;
        QTest::newRow("written with prefix") << 5u << kDebugLogLevel;
        QTest::newRow("filtered") << 10u << kDefaultLogLevel;
    }

    void noHeapAllocation()
    {
        const auto [level, threshold] = fetch<uint, uint>();
        logLevel = threshold;
        StderrCapture capture;
        ::log(level, "warm", 1, "Up.cpp", "%s", "first call sets up time zone data");
        allocations = 0;
        counting = true;
        ::log(level, "fn", 7, "File.cpp", "value %d of %s and %f", 3, "text", 2.5);
        counting = false;
        capture.text();
        QCOMPARE(allocations.load(), 0);
    }

    void reportBuffer_data()
    {
        columns<QByteArray, uint, QByteArray>({"bytes", "shown", "expected"});
        QTest::newRow("cut") << QByteArray("\x01\xab\xff", 3) << 2u
                             << QByteArray("title: [0x01][0xab] ... 2 from 3\n");
        QTest::newRow("all") << QByteArray("\x00\x10", 2) << 8u
                             << QByteArray("title: [0x00][0x10]\n");
        QTest::newRow("none shown")
            << QByteArray("abc") << 0u << QByteArray("title:  ... 0 from 3\n");
        QTest::newRow("empty") << QByteArray() << 4u << QByteArray("title: \n");
    }

    void reportBuffer()
    {
        const auto [bytes, shown, expected] = fetch<QByteArray, uint, QByteArray>();
        StderrCapture capture;
        ReportBuffer(bytes.constData(), uint32_t(bytes.size()), shown, "title: ");
        QCOMPARE(capture.text(), expected);
    }

    // Empty, three bytes, sixteen without dots, seventeen cut: "hexText|hexByteString".
    void hexFunctions()
    {
        const QByteArray sixteen = QByteArray::fromHex("00112233445566778899aabbccddeeff");
        QStringList texts;
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("\x0a\xbc\xff", 3), sixteen, sixteen + '\x7f'})
            texts.append(hexText(bytes) + '|' + QString::fromLatin1(hexByteString(bytes)));
        QCOMPARE(texts, QStringList({"|", "0ABCFF|0abcff",
                                     "00112233445566778899AABBCCDDEEFF|"
                                     "00112233445566778899aabbccddeeff",
                                     "00112233445566778899AABBCCDDEEFF...|"
                                     "00112233445566778899aabbccddeeff7f"}));
    }

    void assertionGoesOn()
    {
        StderrCapture capture;
        int after = 0;
        TAV_ASSERT_TEXT(after == 1, "it != capsList.end()");
        after = 2;
        const QByteArray text = capture.text();
        QVERIFY2(text.startsWith("ASSERT: \"it != capsList.end()\" in TestLog.cpp ("),
                 text.constData());
        QCOMPARE(after, 2);
    }
};

QTEST_APPLESS_MAIN(TestLog)
#include "TestLog.moc"
