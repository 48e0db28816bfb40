// Encoded sources: made, asked for, refused, sent, and gone from memory.
#include "encoding/EncodedSource.h"
#include "tests/support/MemoryScan.h"
#include "tests/upload/upload_bench.h"

namespace {

class EncodedUpload : public UploadBench {
  protected:
    ScratchFolder folder;

    // A file that takes no time to open.
    static QByteArray Sealed(const SecretBytes& plain, const SecretBytes& passphrase) {
        EncodedHeader header = NewEncodedHeader();
        header.passes = 1;
        header.memoryKib = kLeastMemoryKib;
        QByteArray file;
        EXPECT_EQ(SealEncodedSource(header, passphrase, plain, file), EncodedFault::kNone);
        return file;
    }

    // Loads a file and types: the last lines printed and what the device got.
    QString Load(const char* name, const QStringList& words, int printed = 1) {
        typed = words;
        received.clear();
        LoadPath(name);
        EXPECT_TRUE(GadgetHidden(kProgressText) && !GadgetHidden(kSaveMacroButton));
        return Printed(printed) + '|' + Received();
    }
};

TEST_F(EncodedUpload, ThereAndBack) {
    SetGadgetText(kSpecEntry, "s\\pico");
    const QByteArray program = "'target s\\maximite\nPRINT \"\xe9\"\n";
    ScratchFolder::Put("a.b.bas", "'kwedit!!!\r\n  'Encode my game\r\n'encode\r" + program);
    EXPECT_EQ(Load("a.b.bas", {"one", "one"}), "Encoded as a.b.bae|");
    EXPECT_TRUE(ScratchFolder::Get("a.b.bae").startsWith("KWHEX 1\nargon2id 3 262144\n"));
    EXPECT_EQ(Load("a.b.bae", {"one"}, 0).section('|', 1),
              "\3NEW^AUTO^'target s\\maximite^PRINT \"\xe9\"^^\3RUN^");
    EXPECT_EQ(uploadSource.text, "");  // nothing of it is kept
    EXPECT_EQ(asked.join('|'),
              "Encoded source|Passphrase|Encoded source|The same once more|"
              "Encoded source|Passphrase of a.b.bae");
}

TEST_F(EncodedUpload, WhatGoesWrongTakesOneLineAndSendsNothing) {
    ScratchFolder::Put("x.bas", "'encode\nA\n");
    const QByteArray file = Sealed({'A', '\n'}, {'o', 'n', 'e'});
    ScratchFolder::Put("x.bae", file);
    ScratchFolder::Put("cut.bae", file.left(file.size() - 3));
    ScratchFolder::Put("dear.bae", QByteArray(file).replace("argon2id 1", "argon2id 9"));
    ScratchFolder::Put("plain.BAE", "PRINT KWHEX\n");
    ScratchFolder::Put("later.bas", QByteArray(file).replace("KWHEX 1", "KWHEX 2"));
    // Each line cut off the front would take minutes.
    ScratchFolder::Put("only.bas", QByteArray("'encode\n").repeated(400'000) + "'encode");
    ScratchFolder::Put("none.bae", "");
    EXPECT_EQ(Load("cut.bae", {"one"}), "The encoded source is cut or changed.|");
    EXPECT_EQ(Load("later.bas", {"one"}),
              "This is not an encoded source, or one of a form not known here.|");
    EXPECT_EQ(Load("dear.bae", {"one"}),
              "The encoded source asks for a key that costs more than is allowed.|");
    EXPECT_EQ(Load("plain.BAE", {}, 0), "|\3NEW^AUTOSAVE^PRINT KWHEX^\x1aRUN^");
    EXPECT_EQ(Load("only.bas", {"one", "one"}), "Nothing to encode.|");
    EXPECT_EQ(Load("none.bae", {"one"}), "Nothing to load.|");
    EXPECT_TRUE(asked.isEmpty());
    const QString wrong = "Wrong passphrase, or the encoded source was changed.|";
    EXPECT_EQ(Load("x.bae", {"two", "2", "ONE", "one"}, 4), "x.bae|" + wrong.repeated(3));
    EXPECT_EQ(Load("x.bae", {"two", "one"}, 0), "|\3NEW^AUTOSAVE^A^\x1aRUN^");
    EXPECT_EQ(Load("x.bae", {"two"}, 2), wrong + "No passphrase: nothing was decoded.|");
    EXPECT_EQ(Load("x.bas", {}), "No passphrase: nothing was written.|");
    EXPECT_EQ(asked.size(), 8);  // an empty answer is not asked for again
    EXPECT_EQ(Load("x.bas", {"one", "two"}, 2),
              "x.bas|The passphrases differ: nothing was written.|");
    EXPECT_EQ(Load("x.bas", {"one", ""}), "The passphrases differ: nothing was written.|");
    EXPECT_EQ(ScratchFolder::Get("x.bae"), file);
    ASSERT_TRUE(QFile::remove("x.bae") && QDir().mkdir("x.bae"));
    EXPECT_EQ(Load("x.bas", {"one", "one"}), "x.bae could not be written.|");
    EXPECT_EQ(received, "");
}

// Neither the passphrase nor two lines beside each other, whatever is done to the text. Over
// the beginning of a piece memory's owner writes when it gets it back.
TEST_F(EncodedUpload, LeavesNothingInMemory) {
    for (const char* first : {"'target s\\maximite", "A=1", "'target s\\maximite crunch"}) {
        SecretBytes plain;
        for (const char* piece : {" 'kwedit!!!\n", first, "\nPRINT \"Quite\"\nPRINT \"alone\""})
            plain.insert(plain.end(), piece, piece + strlen(piece));
        EXPECT_TRUE(MemoryHolds("Quite\"\nPR"));
        ScratchFolder::Put("s.bae", Sealed(plain, SecretFromText(u"a long pass phrase")));
        plain = SecretBytes();
        typed = QStringList("a long pass phrase");
        EXPECT_TRUE(MemoryHolds("pass phrase"));
        LoadPath("s.bae");
        EXPECT_TRUE(Received().contains("PRINT \"alone\"")) << received;
        EXPECT_FALSE(MemoryHolds("pass phrase") || MemoryHolds("Quite\"\nPR")) << first;
    }
}

}  // namespace
