#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "encoding/EncodedSource.h"
#include "tests/upload/upload_bench.h"
#include "ui/Dialogs.h"

class EncodedUpload : public UploadBench {
  protected:
    QTemporaryDir folder;
    FarEnd line;
    DialogAnswers answers;
    static QStringList typed;  // what the user types into the next dialogs
    static QStringList asked;

    EncodedUpload() {
        Serve(line);
        answers.secret = [](const QString& title, const QString& prompt) {
            asked += title + '|' + prompt;
            return typed.isEmpty() ? QString() : typed.takeFirst();
        };
        AnswerDialogs(&answers);
    }
    ~EncodedUpload() override { AnswerDialogs(nullptr); }

    QString Path(const char* name) const { return folder.filePath(name); }
    QByteArray Contents(const char* name) const {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void Write(const char* name, const QByteArray& bytes) const {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    // Loads a file and types: the last line printed, less the folder, and what the device got.
    QString Load(const char* name, const QStringList& words, int printed = 1) {
        typed = words;
        received.clear();
        LoadPath(Path(name));
        EXPECT_TRUE(GadgetHidden(kProgressText) && !GadgetHidden(kSaveMacroButton));
        return Printed(printed).remove(folder.path() + '/') + '|' + Received();
    }
};

QStringList EncodedUpload::typed;
QStringList EncodedUpload::asked;

TEST_F(EncodedUpload, ThereAndBack) {
    SetGadgetText(kSpecEntry, "s\\pico");
    const QByteArray program = "'target s\\maximite\nPRINT \"\xe9\"\n";
    Write("a.b.bas", "'kwedit!!!\r\n  'Encode my game\r\n'encode\r" + program);
    EXPECT_EQ(Load("a.b.bas", {"one", "one"}), "Encoded as a.b.bae|");
    const QByteArray file = Contents("a.b.bae");
    EXPECT_TRUE(file.startsWith("KWHEX 1\nargon2id 3 262144\n"));
    EXPECT_EQ(Load("a.b.bae", {"one"}, 0).section('|', 1),
              "\3NEW^AUTO^'target s\\maximite^PRINT \"\xe9\"^^\3RUN^");
    EXPECT_EQ(uploadSource.text, "");  // nothing of it is kept
    EXPECT_EQ(asked.join('|'),
              "Encoded source|Passphrase|Encoded source|The same once more|"
              "Encoded source|Passphrase of a.b.bae");
    // The same source makes another file, in place of the first.
    EXPECT_EQ(Load("a.b.bas", {"two", "two"}), "Encoded as a.b.bae|");
    EXPECT_NE(Contents("a.b.bae").mid(25, 99), file.mid(25, 99));
}

TEST_F(EncodedUpload, WhatGoesWrongTakesOneLineAndSendsNothing) {
    Write("x.bas", "'encode\nA\n");
    Load("x.bas", {"one", "one"});
    const QByteArray file = Contents("x.bae");
    Write("cut.bae", file.left(file.size() - 3));
    Write("plain.BAE", "PRINT 1\n");
    Write("later.bas", QByteArray(file).replace("KWHEX 1", "KWHEX 2"));
    Write("costly.bae", QByteArray(file).replace("262144", "999999"));
    Write("only.bas", "'encode\n'encode");
    Write("none.bae", "");
    asked.clear();
    const QString unknown = "This is not an encoded source, or one of a form not known here.|";
    EXPECT_EQ(Load("cut.bae", {"one"}), "The encoded source is cut or changed.|");
    EXPECT_EQ(Load("plain.BAE", {"one"}), unknown);
    EXPECT_EQ(Load("later.bas", {"one"}), unknown);
    EXPECT_EQ(Load("costly.bae", {"one"}),
              "The encoded source asks for a key that costs more than is allowed.|");
    EXPECT_EQ(Load("only.bas", {"one", "one"}), "Nothing to encode.|");
    EXPECT_EQ(Load("none.bae", {"one"}), "Nothing to load.|");
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_EQ(Load("x.bae", {"two"}, 2),
              "x.bae|Wrong passphrase, or the encoded source was changed.|");
    EXPECT_EQ(Load("x.bae", {}, 2), "x.bae|No passphrase: nothing was decoded.|");
    EXPECT_EQ(Load("x.bas", {}), "No passphrase: nothing was written.|");
    EXPECT_EQ(asked.size(), 3);  // an empty answer is not asked for again
    EXPECT_EQ(Load("x.bas", {"one", "two"}, 2),
              "x.bas|The passphrases differ: nothing was written.|");
    EXPECT_EQ(Load("x.bas", {"one", ""}), "The passphrases differ: nothing was written.|");
    EXPECT_EQ(Contents("x.bae"), file);
    ASSERT_TRUE(QFile::remove(Path("x.bae")) && QDir(folder.path()).mkdir("x.bae"));
    EXPECT_EQ(Load("x.bas", {"one", "one"}), "x.bae could not be written.|");
    UploadPastedText("'encode\nA\n");
    EXPECT_TRUE(Printed(1).startsWith("No file to write beside"));
    EXPECT_EQ(received, "");
}
