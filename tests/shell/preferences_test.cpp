// The settings' store: from a file's bytes to entries and back, where things are put, and
// files that somebody spoiled.
#include <sys/stat.h>

#include "shell/PreferencesStore.h"
#include "shell/PreferencesText.h"
#include "tests/shell/ShellRig.h"
#include "tests/support/DiskFull.h"

namespace {

constexpr char kFile[] = "store.inf";
constexpr char kMark[] = "\xEF\xBB\xBF";

// Entries as one text: "[group] ;comment key=value", each in angle brackets.
std::string Read(const QByteArray& bytes) {
    std::vector<PreferenceEntry> entries;
    EXPECT_TRUE(ParsePreferences(DecodePreferences(bytes), &entries));
    QString shown;
    for (const PreferenceEntry& entry : entries) {
        if (entry.kind == PreferenceKind::kGroup) shown += "<[" + entry.name + "]>";
        if (entry.kind == PreferenceKind::kComment) shown += "<;" + entry.name + ">";
        if (entry.kind == PreferenceKind::kKey) shown += "<" + entry.name + "=" + entry.value + ">";
    }
    return shown.toStdString();
}

TEST(PreferencesText, LinesBecomeEntries) {
    const std::pair<std::string, std::string> rows[] = {
        {"\n\r\n \t \n", ""},
        {"[A]\rk = v\r\nl=w", "<[A]><k=v><l=w>"},                 // CR, CR LF and no end
        {" \t[ A ] tail\n\t k \t=\t v \t\n", "<[ A ]><k=v \t>"},  // a value keeps its tail
        {"[A\nk=v", "<[A]><k=v>"},
        {"; one\n;two\n;  three\n;\n", "<;one><;two><; three><;>"},
        {"k=a=b;c\n=v\n==\n", "<k=a=b;c><=v><==>"},
        {"lonely\nnext = 1\nafter = 2", "<lonely=next = 1><after=2>"},
        {"lonely\r\nnext=1", "<lonely=><next=1>"},  // the LF ends the value at once
        {"lonely", "<lonely=>"},
        {std::string("k=a\0b\n", 6), std::string("<k=a\0b>", 7)},
        // Bytes become text by the mark, then by what is valid.
        {"k=\xC3\xA4", "<k=\u00E4>"},
        {"\xEF\xBB\xBFk=\xC3\xA4", "<k=\u00E4>"},
        {"\xEF\xBB\xBFk=\xE4z", "<k=\uFFFDz>"},
    };
    for (const auto& [text, entries] : rows)
        EXPECT_EQ(Read(QByteArray::fromStdString(text)), entries);
    std::vector<PreferenceEntry> most;
    EXPECT_FALSE(ParsePreferences(QString(";\n").repeated(kMostPreferenceEntries + 1), &most));
    EXPECT_EQ(most.size(), size_t(kMostPreferenceEntries));
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    EXPECT_EQ(Read("k=\xE4z"), "<k=\u00E4z>");
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-15"));
    EXPECT_EQ(Read("k=\xA4"), "<k=\u20AC>");
}

class PreferencesStore : public testing::Test {
  protected:
    // Takes steps in the file's own form: "[group" is chosen, ";text" and "key=value" are
    // written, "key?" is read as text and as number. Gives what was read.
    static QString Take(const QString& steps) {
        QString read;
        for (const QString& step : steps.split('|')) {
            const QString key = step.section('=', 0, 0), value = step.section('=', 1);
            if (step[0] == '[') {
                read += PreferenceGroup(step.mid(1)) ? "" : "none ";
            } else if (step[0] == ';') {
                PreferenceComment(step.mid(1));
            } else if (step.endsWith('?')) {
                read += ReadPreferenceString(key.chopped(1), "-") + '/';
                read += QString::number(ReadPreferenceLong(key.chopped(1), 9)) + ' ';
            } else if (value.toInt() != 0) {
                WritePreferenceLong(key, value.toInt());
            } else {
                WritePreferenceString(key, value);
            }
        }
        return ClosePreferences(), read;
    }

    ScratchFolder scratch;
};

TEST_F(PreferencesStore, ReadsAndPutsThingsWhereTheyBelong) {
    const QByteArray groups =
        "early = 1\n[One]\nKey = a\nkey = b\n[Two]\nN = 12x\n[ONE]\nkey = c\nz=1\n"
        "[Numbers]\nspace =  \t 7 \nhex=$10\nbig=4294967301\nempty =\n";
    const QByteArray text = "[A]\nk = 1\nl = 2\n[B]\nm = 3\n";
    const struct {
        QByteArray before;
        QString steps, read;
        QByteArray after;
        int flags = kPreferenceGroupSpace;
    } rows[] = {
        {groups, "EARLY?|[one|KEY?|z?|[missing|key?|[Two|n?", "1/1 a/0 -/9 none -/9 12x/12 ",
         groups},  // not dirty: not touched
        {groups, "[Numbers|space?|hex?|big?|empty?", "7/7 $10/0 4294967301/5 /0 ", groups},
        {text, "[C", "none ", text},
        {text, "[a|K=-7|;behind k|new=\u00E4|;behind new", "",  // k is replaced as it was spelt
         "[A]\nk = -7\n; behind k\nl = 2\nnew = \xC3\xA4\n; behind new\n\n[B]\nm = 3\n"},
        {text, "[A|l?|missing?|;behind l|[C|;heads C|n=4|N?", "2/2 -/9 none 4/4 ",
         "[A]\nk = 1\nl = 2\n; behind l\n\n[B]\nm = 3\n\n[C]\n; heads C\nn = 4\n"},
        {text, ";", "", "; \n[A]\nk = 1\nl = 2\n\n[B]\nm = 3\n"},
        {"", "k=a\r\n[C]|[A\n|;b\n[D]", "none ", "k = a  [C]\n[A ]\n; b [D]\n"},  // none is forged
        {text + "junk\n", "top=1", "", "top=1\n[A]\nk=1\nl=2\n[B]\nm=3\njunk=\n",
         kPreferenceTightKeys},
    };
    for (const auto& row : rows) {
        ScratchFolder::Put(kFile, row.before);
        EXPECT_TRUE(OpenPreferences(kFile, row.flags));
        EXPECT_EQ(Take(row.steps), row.read);
        EXPECT_EQ(ScratchFolder::Get(kFile).replace("\xEF\xBB\xBF\n", ""), row.after);
    }
}

TEST_F(PreferencesStore, ShrinksGrowsAndCreates) {
    EXPECT_FALSE(OpenPreferences(kFile, 0));
    Take("[A");
    EXPECT_FALSE(QFile::exists(kFile));  // nothing changed, nothing made
    OpenPreferences(kFile, 0);
    Take("[A|;new");
    EXPECT_EQ(ScratchFolder::Get(kFile), QByteArray(kMark) + "\n[A]\n; new\n");
    CreatePreferences(kFile, 0);
    EXPECT_EQ(ScratchFolder::Get(kFile), QByteArray(kMark) + "\n[A]\n; new\n");
    ClosePreferences();
    EXPECT_EQ(ScratchFolder::Get(kFile), QByteArray(kMark) + "\n");
}

// What cannot be read is left as it is; of what is too long the head stays; and the old
// contents stay where there is no room for more.
TEST_F(PreferencesStore, SpoiledFilesNeitherBlockNorGetLost) {
    mkfifo("pipe", 0666);
    QDir().mkdir("folder");
    for (const char* path : {"pipe", "folder", "/dev/zero", "pipe/below", ""}) {
        EXPECT_FALSE(OpenPreferences(path, 0)) << path;
        Take(";new");
        CreatePreferences(path, 0);
        ClosePreferences();
    }
    const QByteArray tooLong = "k = 12\nrest = " + QByteArray(kLargestPreferences, 'x') + "\nl=3\n";
    ScratchFolder::Put(kFile, tooLong);
    for (const rlim_t room : {2, INT_MAX}) {
        const DiskFull full(room);
        CreatePreferences(room == 2 ? kFile : "", 0);
        ClosePreferences();
        EXPECT_TRUE(OpenPreferences(kFile, 0));
        EXPECT_EQ(Take("k?|rest?|k=1"), "12/12 -/9 ");  // no half line
        const QByteArray written = QByteArray(kMark) + "\nk = 1\n";
        EXPECT_TRUE(ScratchFolder::Get(kFile) == (room == 2 ? tooLong : written));
    }
    EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
              QStringList({"folder", "pipe", kFile}));
}

TEST_F(PreferencesStore, FileRightsAreHonoured) {
    // Rights bind nobody but an ordinary user, which a test need not run as.
    const uid_t self = getuid(), nobody = self == 0 ? 65534 : self, same = -1;
    ScratchFolder::Put(kFile, "k = 1\n");
    chmod(".", 0777);
    for (const mode_t mode : {0444, 0222}) {
        chmod(kFile, mode);
        ASSERT_EQ(setresuid(nobody, nobody, same), 0);
        EXPECT_EQ(OpenPreferences(kFile, 0), mode == 0444);
        EXPECT_EQ(Take("k?|k=2"), mode == 0444 ? "1/1 " : "-/9 ");
        ASSERT_EQ(setresuid(self, self, same), 0);
    }
    EXPECT_EQ(ScratchFolder::Get(kFile), "k = 1\n");
}

}  // namespace
