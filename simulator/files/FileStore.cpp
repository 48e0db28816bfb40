#include "simulator/files/FileStore.h"

#include "simulator/BoardText.h"

namespace simulator {

// Entries are kept in a map by their whole path in lower case: a folder is what its entries
// have in common, plus an entry of its own.

namespace {

constexpr char kNoFile[] = "Could not find the file";
constexpr char kNoPath[] = "Could not find the path";
constexpr char kFull[] = "No space left on device";

bool IsDrive(std::string_view text) {
    return text.size() >= 2 && text[1] == ':' &&
           (UpperChar(text[0]) == 'A' || UpperChar(text[0]) == 'B');
}

// Quotes and colons can't be typed in a name, control bytes would spoil the listing.
bool IsGoodName(std::string_view name) {
    if (name.empty() || name.size() > kMaximumFileName) return false;
    for (const char c : name) {
        if (static_cast<unsigned char>(c) < ' ' || c == '"' || c == ':') return false;
    }
    return true;
}

// The space that so many bytes take up on the drive.
size_t Blocks(size_t bytes) {
    return (bytes + kDriveBlock - 1) / kDriveBlock * kDriveBlock;
}

// The words of an error are those of the drive's kind.
bool IsFat(const FileStore& store, const std::string& path) {
    return store.fat || path[0] == 'B';
}

const char* TakenWords(const FileStore& store, const std::string& path) {
    return IsFat(store, path) ? "Access denied due to prohibited access" : "Entry already exists";
}

const char* AddEntry(FileStore& store, const std::string& path, StoredFile entry) {
    if (store.entries.size() >= kMaximumFiles) return kFull;
    store.entries[LowerText(path)] = std::move(entry);
    return nullptr;
}

}  // namespace

std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos) return path;
    return path.substr(0, slash == 2 ? 3 : slash);
}

std::string NameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string JoinPath(const std::string& folder, const std::string& name) {
    return folder + (!folder.empty() && folder.back() == '/' ? "" : "/") + name;
}

std::string WithExtension(const std::string& name) {
    return NameOf(name).find('.') == std::string::npos ? name + ".bas" : name;
}

// Both slashes separate. A path that climbs above the root is refused, not cut.
bool ResolvePath(const FileStore& store, std::string_view typed, std::string* path) {
    std::string result = store.folder;
    if (IsDrive(typed)) {
        result = std::string(1, UpperChar(typed[0])) + ":/";
        typed.remove_prefix(2);
    } else if (!typed.empty() && (typed[0] == '/' || typed[0] == '\\')) {
        result = store.folder.substr(0, 3);
    }
    while (!typed.empty()) {
        const size_t end = std::min(typed.find_first_of("/\\"), typed.size());
        const std::string_view name = typed.substr(0, end);
        typed.remove_prefix(std::min(end + 1, typed.size()));
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            if (result.size() <= 3) return false;
            result = FolderOf(result);
            continue;
        }
        if (!IsGoodName(name)) return false;
        result = JoinPath(result, std::string(name));
        if (result.size() > kMaximumPath) return false;
    }
    *path = result;
    return true;
}

const StoredFile* FindFile(const FileStore& store, std::string_view path) {
    const auto found = store.entries.find(LowerText(path));
    return found == store.entries.end() ? nullptr : &found->second;
}

// "A:/" is three characters long: the root has no entry of its own.
bool FolderExists(const FileStore& store, std::string_view path) {
    if (path.size() == 3) return path[0] == 'A' || store.sdCard;
    const StoredFile* entry = FindFile(store, path);
    return entry && entry->isFolder;
}

const char* WriteFile(FileStore& store, const std::string& path, std::string_view data,
                      int64_t stamp) {
    if (!FolderExists(store, FolderOf(path))) return kNoPath;
    if (!IsGoodName(NameOf(path))) return kNoFile;
    const StoredFile* old = FindFile(store, path);
    if (old && old->isFolder) return TakenWords(store, path);
    if (Blocks(data.size()) > FreeBytes(store) + (old ? Blocks(old->data.size()) : 0)) return kFull;
    const std::string name = old ? old->name : NameOf(path);
    return AddEntry(store, path, {name, false, std::string(data), stamp});
}

const char* MakeFolder(FileStore& store, const std::string& path) {
    if (!FolderExists(store, FolderOf(path))) return kNoPath;
    if (path.size() <= 3 || FindFile(store, path)) return TakenWords(store, path);
    return AddEntry(store, path, {NameOf(path), true, {}, 0});
}

const char* RemoveFile(FileStore& store, const std::string& path) {
    const StoredFile* file = FindFile(store, path);
    if (!file || file->isFolder) return kNoFile;
    store.entries.erase(LowerText(path));
    return nullptr;
}

const char* RemoveFolder(FileStore& store, const std::string& path) {
    const StoredFile* folder = FindFile(store, path);
    if (!folder || !folder->isFolder) return kNoFile;
    if (!ListFolder(store, path).empty())
        return IsFat(store, path) ? "FAccess denied due to prohibited access or directory full"
                                  : "Dir is not empty";
    store.entries.erase(LowerText(path));
    return nullptr;
}

// All below the folder stand together in the map; deeper ones are passed over.
std::vector<const StoredFile*> ListFolder(const FileStore& store, const std::string& folder) {
    std::vector<const StoredFile*> found;
    const std::string start = LowerText(JoinPath(folder, ""));
    for (auto at = store.entries.lower_bound(start); at != store.entries.end(); ++at) {
        if (at->first.compare(0, start.size(), start) != 0) break;
        if (at->first.find('/', start.size()) == std::string::npos) found.push_back(&at->second);
    }
    return found;
}

size_t FreeBytes(const FileStore& store) {
    size_t used = 0;
    for (const auto& [path, file] : store.entries) used += Blocks(file.data.size());
    return kDriveBytes - used;
}

}  // namespace simulator
