// How each family takes a program that is typed at it: the command that opens its
// receive mode and the code that closes it. These constants steer the normal upload; the
// rows of DeviceFamily.h steer the flash path and the file manager. The two are separate
// on purpose. Interface thread.
#pragma once

#include <QString>

// Codes that close receive mode.
constexpr char kBreakCode[] = "\x03";           // Ctrl-C
constexpr char kEndOfTextCode[] = "\x1a";       // Ctrl-Z
constexpr char kSaveCode[] = "\x1b[11~";        // F1: save alone
constexpr char kSaveAndRunCode[] = "\x1b[12~";  // F2: save and run

// AUTOSAVE, closed by Ctrl-Z, with everything done around it that can be left out and nothing
// that must be asked for. The family and whether to disconnect stay.
void ResetMethod();

// Takes the method that a family word names into the live options, with the family's own
// name. `deviceFile` is the name on the device for a family that needs one. A word that
// names no known method only becomes the family name.
void TakeFamily(const QString& word, const QString& deviceFile);

// The program is stored and not run. A family whose end code runs it gets another code.
void LeaveOutRun();

// The command that opens receive mode into a file of that name.
QString AutosaveInto(const QString& deviceFile);

// Name part of the file being loaded, or "temp.bas" for a text that has none.
QString DeviceFileName();
