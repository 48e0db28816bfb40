#include "ports/PortAccess.h"

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <vector>

namespace {

constexpr mode_t kGroupMayUse = S_IRGRP | S_IWGRP;
constexpr int kMostGroups = 1024;
constexpr qint64 kLongestName = 64;  // bytes; the kernel's own limit is 16

QString NameOfGroup(gid_t id) {
    const group* found = getgrgid(id);
    return found ? QString::fromLocal8Bit(found->gr_name) : QString::number(id);
}

// A group that was joined after the log-in is in the database and not in the process.
bool DatabaseHasMember(const passwd& user, gid_t id) {
    std::vector<gid_t> groups(kMostGroups);
    int count = kMostGroups;
    if (getgrouplist(user.pw_name, user.pw_gid, groups.data(), &count) < 0) return false;
    return std::find(groups.begin(), groups.begin() + count, id) != groups.begin() + count;
}

bool HasOpen(const QString& process, const QString& path) {
    const QDir open("/proc/" + process + "/fd", QString(), QDir::NoSort,
                    QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System);
    const QFileInfoList files = open.entryInfoList();
    return std::any_of(files.begin(), files.end(),
                       [&](const QFileInfo& file) { return file.symLinkTarget() == path; });
}

QString NameOfProcess(const QString& process) {
    QFile file("/proc/" + process + "/comm");
    if (!file.open(QIODevice::ReadOnly)) return "?";
    return QString::fromLocal8Bit(file.read(kLongestName)).trimmed();
}

}  // namespace

PortRights RightsOn(const QString& path) {
    PortRights rights;
    const QByteArray name = QFile::encodeName(path);
    rights.mayOpen = access(name.constData(), R_OK | W_OK) == 0;
    struct stat facts = {};
    if (stat(name.constData(), &facts) != 0) return rights;
    rights.mode = facts.st_mode;
    rights.group = NameOfGroup(facts.st_gid);
    if (const passwd* user = getpwuid(getuid())) {
        rights.user = QString::fromLocal8Bit(user->pw_name);
        rights.memberByName = DatabaseHasMember(*user, facts.st_gid);
    }
    return rights;
}

QString AccessSentence(const PortRights& rights) {
    if (rights.mayOpen) return "you may open it";
    if ((rights.mode & kGroupMayUse) != kGroupMayUse) return "only its owner, or root, may open it";
    if (rights.memberByName) {
        return QString("you joined the group %1, but this session began before: log out and in")
            .arg(rights.group);
    }
    return QString("you may not open it: sudo adduser %1 %2, then log out and in")
        .arg(rights.user, rights.group);
}

QStringList HoldersOf(const QString& path) {
    QStringList holders;
    for (const QString& name : QDir("/proc").entryList({"[0-9]*"}, QDir::Dirs)) {
        if (HasOpen(name, path)) holders += QString("%1 (%2)").arg(NameOfProcess(name), name);
    }
    return holders;
}
