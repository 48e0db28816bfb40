#include "encoding/EncodedSource.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QRegularExpression>

#include "base/WholeFile.h"
#include "tests/support/DiskFull.h"
#include "tests/support/ScratchFolder.h"

namespace {

// What a reader gets, and why it gets nothing.
EncodedFault Open(const QByteArray& file, const QByteArray& passphrase, QByteArray& plain) {
    EncodedSource source;
    SecretBytes text;
    EncodedFault fault = ParseEncodedSource(file, source);
    QString typed = QString::fromUtf8(passphrase);
    if (fault == EncodedFault::kNone)
        fault = OpenEncodedSource(source, TakePassphrase(typed), text);
    plain = TextFromSecret(text).toLatin1();
    return fault;
}

// The vectors of the document that describes the format: passphrase, plain text and file.
std::vector<QByteArrayList> Vectors() {
    std::vector<QByteArrayList> vectors;
    const QString document = ScratchFolder::Get(KWCC_SOURCE_DIR "/docs/ENCODED-SOURCES.md");
    const QRegularExpression block("passphrase (\\w+)\nplain (\\w+)\n(KWHEX[^`]+)```");
    for (auto found = block.globalMatch(document); found.hasNext();) {
        const QStringList parts = found.next().capturedTexts();
        vectors.push_back({QByteArray::fromHex(parts[1].toLatin1()),
                           QByteArray::fromHex(parts[2].toLatin1()), parts[3].toLatin1()});
    }
    return vectors;
}

TEST(EncodedSources, AreThoseOfTheDocument) {
    ASSERT_EQ(Vectors().size(), 3u);
    for (const QByteArrayList& vector : Vectors()) {
        QByteArray plain, file;
        EXPECT_EQ(Open(vector[2], vector[0], plain), EncodedFault::kNone);
        EXPECT_EQ(plain, vector[1]);
        EncodedSource source;
        ParseEncodedSource(vector[2], source);
        QString typed = QString::fromUtf8(vector[0]);
        SealEncodedSource(source.header, TakePassphrase(typed),
                          SecretFromText(QString::fromLatin1(plain)), file);
        EXPECT_EQ(file, vector[2]);
        EXPECT_EQ(Open(file, vector[0] + ' ', plain), EncodedFault::kRefused);
        EXPECT_EQ(plain + typed.toUtf8(), "");
    }
}

// Whatever is done to a file, nothing of its text comes out.
TEST(EncodedSources, SpoiltInAnyWayGiveNothing) {
    const QByteArray good = Vectors()[0][2];
    QByteArray plain;
    const auto fault = [&](const QByteArray& file) { return Open(file, Vectors()[0][0], plain); };
    for (int at = 0; at < good.size(); ++at) {
        QByteArray file = good;
        for (int bit = 0; bit < 8; ++bit) {
            file[at] = static_cast<char>(good[at] ^ (1 << bit));
            EXPECT_NE(fault(file), EncodedFault::kNone) << at << ' ' << bit;
        }
        EXPECT_NE(fault(good.left(at)), EncodedFault::kNone) << at;
        EXPECT_NE(fault(QByteArray(good).insert(at, '0')), EncodedFault::kNone) << at;
    }
    EXPECT_EQ(fault(good + "\n"), EncodedFault::kDamaged);
    EXPECT_EQ(fault(QByteArray(good).replace('\n', "\r\n")), EncodedFault::kUnknown);
}

TEST(EncodedSources, AreBoundedBeforeAnythingIsDerived) {
    // A derivation at a refused cost would take minutes, or all memory.
    const std::pair<EncodedFault, QByteArrayList> rows[] = {
        {EncodedFault::kNone, {"1 8", "8 524288"}},
        {EncodedFault::kTooCostly, {"9 8", "0 8", "1 7", "1 524289", "4294967295 8"}},
        {EncodedFault::kDamaged, {"4294967297 8", "01 8", "-1 8", "1 8 1", "1  8", "+1 8"}}};
    EncodedSource source;
    const QByteArrayList parts = {Vectors()[0][2].left(17), Vectors()[0][2].mid(20)};
    for (const auto& [fault, costs] : rows) {
        for (const QByteArray& cost : costs)
            EXPECT_EQ(ParseEncodedSource(parts.join(cost), source), fault) << cost.toStdString();
    }
    EncodedHeader header = NewEncodedHeader();
    EXPECT_NE(header.salt, NewEncodedHeader().salt);
    EXPECT_NE(header.nonce, NewEncodedHeader().nonce);
    header.passes = 1;
    header.memoryKib = kLeastMemoryKib;
    SecretBytes most(kLargestEncodedText, 'A'), key(1, 'x');
    QByteArray file, plain;
    EXPECT_EQ(SealEncodedSource(header, key, most, file), EncodedFault::kNone);
    EXPECT_EQ(Open(file, "x", plain), EncodedFault::kNone);
    EXPECT_EQ(plain, QByteArray(kLargestEncodedText, 'A'));
    EXPECT_EQ(ParseEncodedSource(file + file, source), EncodedFault::kTooLarge);
    most.push_back('A');
    EXPECT_EQ(SealEncodedSource(header, key, most, file), EncodedFault::kTooLarge);
}

// Takes the place of the kernel's call.
static std::string synced;
extern "C" int fsync(int fd) {
    synced += fcntl(fd, F_GETFL) & O_DIRECTORY ? 'd' : 'f';
    return 0;
}

TEST(EncodedSources, AreWrittenWholeOrNotAtAll) {
    const ScratchFolder folder;
    synced.clear();
    EXPECT_TRUE(WriteWholeFile("a b.bae", "first"));
    EXPECT_EQ(synced, "d");  // the folder; the toolkit sees to the file by another call
    chmod("a b.bae", 0640);
    EXPECT_TRUE(WriteWholeFile("a b.bae", "second"));
    EXPECT_EQ(QFile::permissions("a b.bae"), 0x6640);  // 0640, and so for this user
    mkfifo("fifo", 0600);
    for (const char* bad : {"fifo", ".", "none/x"})
        EXPECT_FALSE(WriteWholeFile(bad, "third")) << bad;
    {
        const DiskFull full(4);  // a buffer that went out in part was once taken for written
        EXPECT_FALSE(WriteWholeFile("a b.bae", "third"));
    }
    EXPECT_EQ(ScratchFolder::Get("a b.bae"), "second");
    EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
              QStringList({"a b.bae", "fifo"}));
}

}  // namespace
