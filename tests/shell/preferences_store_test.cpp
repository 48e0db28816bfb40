// The store on real files: what is found, where things are put, and files that somebody
// spoiled.
#include "shell/PreferencesStore.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>

#include "shell/PreferencesText.h"
#include "tests/support/DiskFull.h"
#include "tests/support/ScratchFolder.h"

namespace {

constexpr char kFile[] = "store.inf";
constexpr char kMark[] = "\xEF\xBB\xBF\n";
constexpr int kFlags = kPreferenceGroupSpace;

class PreferencesStoreTest : public testing::Test {
  protected:
    // Opens the text, acts, closes; what the file then holds, without the mark.
    template <typename Action>
    static std::string After(const QByteArray& text, Action action) {
        ScratchFolder::Put(kFile, text);
        EXPECT_TRUE(OpenPreferences(kFile, kFlags));
        action();
        ClosePreferences();
        return ScratchFolder::Get(kFile).replace(kMark, "").toStdString();
    }
    // Opens, changes and closes whatever is there.
    static void Touch() {
        OpenPreferences(kFile, kFlags);
        PreferenceGroup("A");
        PreferenceComment("new");
        ClosePreferences();
    }

    ScratchFolder scratch;
};

// Rights bind nobody but an ordinary user, which a test need not run as.
void AsOrdinaryUser(bool ordinary) {
    constexpr uid_t kNobody = 65534;
    static const uid_t self = getuid();
    const uid_t user = ordinary && self == 0 ? kNobody : self;
    ASSERT_EQ(setresuid(user, user, static_cast<uid_t>(-1)), 0);
}

TEST_F(PreferencesStoreTest, ReadsByGroupWithoutRegardToCase) {
    ScratchFolder::Put(kFile,
                       "early = 1\n[One]\nKey = a\nkey = b\n[Two]\nN = 12x\n[ONE]\nkey = c\nz=1\n"
                       "[Numbers]\nspace =  \t 7 \nhex=$10\nbig=4294967301\nempty =\n");
    EXPECT_TRUE(OpenPreferences(kFile, kFlags));
    EXPECT_EQ(ReadPreferenceLong("EARLY", 0), 1);
    EXPECT_TRUE(PreferenceGroup("one"));
    EXPECT_EQ(ReadPreferenceString("KEY", ""), "a");
    EXPECT_EQ(ReadPreferenceLong("z", 5), 5);  // stands in the second group of that name
    EXPECT_FALSE(PreferenceGroup("missing"));
    EXPECT_EQ(ReadPreferenceString("key", "default"), "default");
    EXPECT_TRUE(PreferenceGroup("Two"));
    EXPECT_EQ(ReadPreferenceLong("n", 0), 12);
    PreferenceGroup("Numbers");
    for (const auto& [key, value] :
         {std::pair("space", 7), std::pair("hex", 0), std::pair("big", 5), std::pair("empty", 0)})
        EXPECT_EQ(ReadPreferenceLong(key, 9), value) << key;
    EXPECT_EQ(ReadPreferenceString("space", ""), "7");
    EXPECT_EQ(ReadPreferenceString("empty", "default"), "");
    ClosePreferences();
}

TEST_F(PreferencesStoreTest, PutsThingsWhereTheyBelong) {
    const QByteArray text = "[A]\nk = 1\nl = 2\n[B]\nm = 3\n";
    const std::string kept = text.toStdString();
    EXPECT_EQ(After(text, [] { PreferenceGroup("C"); }), kept);  // not dirty: not touched
    EXPECT_EQ(After(text,
                    [] {
                        PreferenceGroup("a");
                        WritePreferenceLong("K", -7);  // replaced, its spelling stays
                        PreferenceComment("behind k");
                        WritePreferenceString("new", "\u00E4");  // at the end of the group
                        PreferenceComment("behind new");
                    }),
              "[A]\nk = -7\n; behind k\nl = 2\nnew = \xC3\xA4\n; behind new\n\n[B]\nm = 3\n");
    EXPECT_EQ(After(text,
                    [] {
                        PreferenceGroup("A");
                        ReadPreferenceLong("l", 0);
                        ReadPreferenceLong("missing", 0);
                        PreferenceComment("behind l");
                        PreferenceGroup("C");
                        PreferenceComment("heads C");
                        WritePreferenceLong("n", 4);
                        EXPECT_EQ(ReadPreferenceLong("N", 0), 4);
                    }),
              "[A]\nk = 1\nl = 2\n; behind l\n\n[B]\nm = 3\n\n[C]\n; heads C\nn = 4\n");
    EXPECT_EQ(After(text + "junk\n", [] { WritePreferenceLong("top", 1); }),
              "top = 1\n[A]\nk = 1\nl = 2\n\n[B]\nm = 3\njunk = \n");
}

TEST_F(PreferencesStoreTest, ShrinksGrowsAndCreates) {
    EXPECT_FALSE(OpenPreferences(kFile, kFlags));
    ClosePreferences();
    EXPECT_FALSE(QFile::exists(kFile));  // nothing changed, nothing made
    Touch();
    EXPECT_EQ(ScratchFolder::Get(kFile), QByteArray(kMark) + "[A]\n; new\n");
    CreatePreferences(kFile, kFlags);
    EXPECT_EQ(ScratchFolder::Get(kFile), QByteArray(kMark) + "[A]\n; new\n");
    ClosePreferences();
    EXPECT_EQ(ScratchFolder::Get(kFile), kMark);
}

// What cannot be read is left as it is; of what is too long the head stays.
TEST_F(PreferencesStoreTest, SpoiledFilesNeitherBlockNorGetLost) {
    ASSERT_EQ(mkfifo("pipe", 0666), 0);
    QDir().mkdir("folder");
    for (const char* path : {"pipe", "folder", "/dev/zero", "store.inf/below", ""}) {
        EXPECT_FALSE(OpenPreferences(path, kFlags)) << path;
        PreferenceComment("new");
        ClosePreferences();
        CreatePreferences(path, kFlags);
        ClosePreferences();
    }
    EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
              QStringList({"folder", "pipe"}));
    const QByteArray tooLong = "k = 12\nrest = " + QByteArray(kLargestPreferences, 'x') + "\nl=3\n";
    ScratchFolder::Put(kFile, tooLong);
    EXPECT_TRUE(OpenPreferences(kFile, kFlags));
    EXPECT_EQ(ReadPreferenceLong("k", 0), 12);
    EXPECT_EQ(ReadPreferenceString("rest", "cut"), "cut");  // no half line
    WritePreferenceLong("k", 1);
    ClosePreferences();
    EXPECT_EQ(ScratchFolder::Get(kFile), QByteArray(kMark) + "k = 1\n");
}

TEST_F(PreferencesStoreTest, FileRightsAreHonoured) {
    ScratchFolder::Put(kFile, "k = 1\n");
    ASSERT_EQ(chmod(".", 0777), 0);
    for (mode_t mode : {0444, 0222}) {
        ASSERT_EQ(chmod(kFile, mode), 0);
        AsOrdinaryUser(true);
        EXPECT_EQ(OpenPreferences(kFile, kFlags), mode == 0444);
        EXPECT_EQ(ReadPreferenceLong("k", 9), mode == 0444 ? 1 : 9);
        WritePreferenceLong("k", 2);
        ClosePreferences();
        AsOrdinaryUser(false);
    }
    ASSERT_EQ(chmod(kFile, 0644), 0);
    EXPECT_EQ(ScratchFolder::Get(kFile), "k = 1\n");
}

// The old contents stay, at load and at the end of a run.
TEST_F(PreferencesStoreTest, NoRoomForMoreLeavesTheFile) {
    const QByteArray text = "k = " + QByteArray(90, 'x') + "\n";
    ScratchFolder::Put(kFile, text);
    {
        const DiskFull full(2);
        Touch();
        CreatePreferences(kFile, kFlags);
        ClosePreferences();
    }
    EXPECT_EQ(ScratchFolder::Get(kFile), text);
    EXPECT_EQ(QDir().entryList(QDir::Files), QStringList(kFile));
}

}  // namespace
