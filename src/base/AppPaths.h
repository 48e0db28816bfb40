// Where the program and its data lie. Interface thread.
#pragma once

#include <QString>

struct AppPaths {
    QString executable;     // resolved path of the running program
    QString programFolder;  // its folder, with the trailing separator
    QString dataFolder;     // programFolder and "data/"; never created by the program
    QString settingsFileName = "KWCC.inf";
    QString pathSeparator = "/";
};

extern const AppPaths& appPaths;

// Reads the link /proc/self/exe and fills the record.
void ResolveAppPaths();

// Full path of the settings file.
QString SettingsPath();
