// What a companion program does before and behind the making of its application.
#pragma once

#include <QStringList>

// Before the application is made: pixels of the screen at any scale, and no OpenGL, whose driver
// takes most of a start's time.
void PrepareApplication();

// The words behind the program's name, as main has them.
QStringList WordsOf(int argc, char** argv);

// The folder of the console's settings: `data` beside the program.
QString DataFolder();

// Where the program's own settings lie: beside the console's, or where the desktop has them
// when that folder can't be written to.
QString SettingsFolder();
