#include "base/DocumentsFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

namespace {

TEST(DocumentsFolder, FollowsTheDesktopsFile) {
    QTemporaryDir home;
    const QString path = home.path() + "/";
    setenv("HOME", home.path().toUtf8().constData(), 1);
    EXPECT_EQ(DocumentsFolder(), path);  // no such file
    QDir(home.path()).mkdir(".config");
    const struct {
        const char* text;
        QString folder;
    } rows[] = {
        {"XDG_DOCUMENTS_DIR=\"$HOME/Papers\"\n", path + "Papers/"},
        {"#XDG_DOCUMENTS_DIR=\"/no\"\nXDG_DOWNLOAD_DIR=\"/no\"\n", path},
        {"XDG_DOCUMENTS_DIR=\"/a\"\n \tXDG_DOCUMENTS_DIR=\"/b/\" # now\n", "/b/"},
        {"XDG_DOCUMENTS_DIR=\"$HOMEWARD/x\"", path},  // relative: no value
        {"XDG_DOCUMENTS_DIR=", path},
        {"XDG_DOCUMENTS_DIR=\"/a \\\"q\\\" \\$\xC3\xA4", "/a \"q\" $\u00E4/"},
    };
    for (const auto& row : rows) {
        QFile file(path + ".config/user-dirs.dirs");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(row.text);
        file.close();
        EXPECT_EQ(DocumentsFolder(), row.folder) << row.text;
    }
    unsetenv("HOME");
    EXPECT_EQ(DocumentsFolder(), "");
}

}  // namespace
