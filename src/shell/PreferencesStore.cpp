#include "shell/PreferencesStore.h"

#include <algorithm>
#include <cstdlib>

#include "base/BoundedFile.h"
#include "base/TextRules.h"
#include "base/WholeFile.h"
#include "shell/PreferencesText.h"

namespace {

constexpr int kBeforeAll = -1;  // position and group before any is chosen
constexpr int kNotFound = -1;
constexpr int kLongestNumber = 4096;  // characters that a number is read from

struct PreferencesStore {
    std::vector<PreferenceEntry> entries;
    QString path;            // where it is written
    int flags = 0;           // layout
    int group = kBeforeAll;  // entry of the current group
    int position = kBeforeAll;
    QString pendingGroup;  // chosen, but not there yet
    bool pending = false;
    bool open = false;
    bool dirty = false;
};

thread_local PreferencesStore store;

int EntryCount() {
    return static_cast<int>(store.entries.size());
}

PreferenceEntry& EntryAt(int index) {
    return store.entries[static_cast<size_t>(index)];
}

bool SameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Where the next group begins, or the end of the store.
int GroupEnd() {
    int at = store.group + 1;
    while (at < EntryCount() && EntryAt(at).kind != PreferenceKind::kGroup) ++at;
    return at;
}

// The key's entry in the current group, which becomes the current position.
int FindKey(const QString& key) {
    const int end = store.pending ? kBeforeAll : GroupEnd();
    for (int at = store.group + 1; at < end; ++at) {
        const PreferenceEntry& entry = EntryAt(at);
        if (entry.kind != PreferenceKind::kKey || !SameName(entry.name, key)) continue;
        store.position = at;
        return at;
    }
    return kNotFound;
}

void InsertEntry(int at, const PreferenceEntry& entry) {
    store.entries.insert(store.entries.begin() + at, entry);
    store.position = at;
    store.dirty = true;
}

void CreatePendingGroup() {
    if (!store.pending) return;
    store.pending = false;
    store.group = EntryCount();
    InsertEntry(store.group, {PreferenceKind::kGroup, store.pendingGroup, QString()});
}

// A cut file ends in the middle of a line; half a value is worse than none.
QByteArray WholeLines(const BoundedRead& read) {
    if (read.whole) return read.bytes;
    return read.bytes.left(std::max(read.bytes.lastIndexOf('\n'), read.bytes.lastIndexOf('\r')));
}

void StartStore(const QString& path, int flags) {
    ClosePreferences();
    store.open = true;
    store.path = path;
    store.flags = flags;
}

}  // namespace

bool OpenPreferences(const QString& path, int flags) {
    StartStore(path, flags);
    const BoundedRead read = ReadFileUpTo(path, kLargestPreferences);
    ParsePreferences(DecodePreferences(WholeLines(read)), &store.entries);
    store.open = read.opened || FileIsMissing(path);
    return read.opened;
}

void CreatePreferences(const QString& path, int flags) {
    StartStore(path, flags);
    store.dirty = true;
}

bool PreferenceGroup(const QString& name) {
    for (int at = 0; at < EntryCount(); ++at) {
        if (EntryAt(at).kind != PreferenceKind::kGroup || !SameName(EntryAt(at).name, name))
            continue;
        store.group = store.position = at;
        store.pending = false;
        return true;
    }
    store.pending = true;
    store.pendingGroup = name;
    return false;
}

void PreferenceComment(const QString& text) {
    if (!store.open) return;
    CreatePendingGroup();
    InsertEntry(store.position + 1, {PreferenceKind::kComment, text, QString()});
}

int32_t ReadPreferenceLong(const QString& key, int32_t fallback) {
    const int at = FindKey(key);
    if (at == kNotFound) return fallback;
    // Longer than any number that fits; the cut keeps a hostile value cheap.
    const QByteArray digits = EntryAt(at).value.left(kLongestNumber).toLatin1();
    return static_cast<int32_t>(strtol(digits.constData(), nullptr, 10));
}

QString ReadPreferenceString(const QString& key, const QString& fallback) {
    const int at = FindKey(key);
    return at == kNotFound ? fallback : TrimBlanksAndTabs(EntryAt(at).value);
}

void WritePreferenceLong(const QString& key, int32_t value) {
    WritePreferenceString(key, QString::number(value));
}

void WritePreferenceString(const QString& key, const QString& value) {
    if (!store.open) return;
    CreatePendingGroup();
    const int at = FindKey(key);
    if (at == kNotFound) {
        InsertEntry(GroupEnd(), {PreferenceKind::kKey, key, value});
    } else {
        EntryAt(at).value = value;
        store.dirty = true;
    }
}

void ClosePreferences() {
    if (store.open && store.dirty) {
        WriteWholeFile(store.path, FormatPreferences(store.entries, store.flags));
    }
    store = PreferencesStore();
}
