// The board's drives, kept in memory: A: is the flash (or the only drive), B: a card.
// Names keep their case and are compared without it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

constexpr size_t kMaximumFiles = 1000;    // files and folders of both drives
constexpr size_t kMaximumFileName = 127;  // characters of one name
constexpr size_t kMaximumPath = 255;
constexpr size_t kDriveBytes = 13 * 1024 * 1024;  // of both drives together
constexpr size_t kDriveBlock = 4096;              // a file takes up whole blocks

struct StoredFile {
    std::string name;  // without its folder
    bool isFolder = false;
    std::string data;
    int64_t stamp = 0;  // seconds since 1970 in civil time, 0 for none
};

struct FileStore {
    std::map<std::string, StoredFile> entries;  // by the lower-cased whole path
    std::string folder = "A:/";                 // the current one, ends in "/" only as root
    bool fat = false;                           // words of FAT for the errors
    bool sdCard = false;                        // drive B: has one
};

// A name as typed, made into "A:/games/x.bas". False for one that can't be: too long,
// above the root, or with forbidden characters.
bool ResolvePath(const FileStore& store, std::string_view typed, std::string* path);

// nullptr if there is nothing of that path. A drive's root is none.
const StoredFile* FindFile(const FileStore& store, std::string_view path);
bool FolderExists(const FileStore& store, std::string_view path);

// Each gives nullptr, or the words of the error.
const char* WriteFile(FileStore& store, const std::string& path, std::string_view data,
                      int64_t stamp);
const char* MakeFolder(FileStore& store, const std::string& path);
const char* RemoveFile(FileStore& store, const std::string& path);
const char* RemoveFolder(FileStore& store, const std::string& path);

// What lies in `folder`, by name.
std::vector<const StoredFile*> ListFolder(const FileStore& store, const std::string& folder);

size_t FreeBytes(const FileStore& store);

// "A:/games/x.bas" taken apart: "A:/games" (a root keeps its "/") and "x.bas".
std::string FolderOf(const std::string& path);
std::string NameOf(const std::string& path);

// Folder and name put together.
std::string JoinPath(const std::string& folder, const std::string& name);

// The name with ".bas" if it has no extension.
std::string WithExtension(const std::string& name);

}  // namespace simulator
