// The text form of a preferences file. A group line is "[", the name, "]"; a comment line
// ";", a blank, the text; a key line the key, " = ", the value. Pure; any thread.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

// A file as the program writes it stays far below both bounds: its longest part are the
// 31 commands of the history, each of which holds what fits into a text entry.
constexpr int kLargestPreferences = 8 * 1024 * 1024;  // bytes read of a file
constexpr int kMostPreferenceEntries = 10000;

// Flags of a file's layout, summed.
constexpr int kPreferenceTightKeys = 1;   // "=" without blanks; not used by the program
constexpr int kPreferenceGroupSpace = 2;  // an empty line before every group but the first

enum class PreferenceKind { kGroup, kComment, kKey };

struct PreferenceEntry {
    PreferenceKind kind = PreferenceKind::kKey;
    QString name;   // of a group or key; a comment's text
    QString value;  // of a key, with whatever blanks stand behind it
};

// The bytes of a file as text: UTF-8 behind a byte-order mark. Without the mark the file
// does not state its encoding; it is UTF-8 where the bytes are valid UTF-8, or else the
// locale's 8-bit form, or else, where the locale cannot read it either, Latin-1.
QString DecodePreferences(const QByteArray& bytes);

// Adds what the text holds to `entries`, in order. False when there was more than
// kMostPreferenceEntries; the rest is then left out.
bool ParsePreferences(const QString& text, std::vector<PreferenceEntry>* entries);

// The file's bytes, from the byte-order mark on. A CR or LF inside a name or value would
// end its line and make a line of its own of the rest; each is written as a blank.
QByteArray FormatPreferences(const std::vector<PreferenceEntry>& entries, int flags);
