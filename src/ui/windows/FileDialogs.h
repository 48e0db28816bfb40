// The dialogs that ask for a file. They return when the user has answered. Interface thread.
#pragma once

#include <QString>

// The patterns under which programs and captures are saved.
constexpr char kSourcePatterns[] = "Basic (*.bas)|*.bas|Text (*.txt)|*.txt|All files (*.*)|*.*";

struct FileChoice {
    QString path;     // empty for a cancelled dialog
    int pattern = 0;  // position, from 0, of the chosen pattern; 0 when cancelled
};

// Who asks before a file that exists is overwritten.
enum class OverwriteQuestion { kByDialog, kByCaller };

// `patterns` is "Name (*.a)|*.a|Name (*.b)|*.b". `preset` is a folder ending in "/", or a
// name with or without a folder.
FileChoice AskSaveFile(const QString& title, const QString& preset, const QString& patterns,
                       OverwriteQuestion question = OverwriteQuestion::kByDialog);
FileChoice AskOpenFile(const QString& title, const QString& preset, const QString& patterns);
