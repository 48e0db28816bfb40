// The words behind the program's name.
#pragma once

#include <QStringList>

struct CommandLine {
    QString answer;     // of "--help" and "--version": is printed, and that is all
    QString unknown;    // the first option that is none
    QStringList files;  // behind "--" any word is one
};

CommandLine ReadCommandLine(const QStringList& words, const QString& version);
