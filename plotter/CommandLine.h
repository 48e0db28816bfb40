// The words behind the program's name.
#pragma once

#include <QStringList>

struct PlotCommandLine {
    QString answer;   // of "--help" and "--version": is printed, and that is all
    QString trouble;  // what is wrong with the words
    QString host;     // empty: this machine
    int port = 0;     // 0: that of the console's settings
    QString file;     // a recorded run, or "-"; empty: the data port
};

PlotCommandLine ReadPlotCommandLine(const QStringList& words, const QString& version);
