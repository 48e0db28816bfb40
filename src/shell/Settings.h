// The settings file as a whole: read once at start, written once at the end of the run.
// A setting in use is its owner's variable, never the file. Interface thread.
#pragma once

// Reads all groups and applies what follows from them: colours, fonts 57 and 58, the line
// ending, the built-in device families if the file has none. Defaults stand for whatever
// is missing. The file itself gains two comments by this, and is created when missing.
void LoadSettings();

// Writes the file anew. What cannot be written is dropped without a word.
void SaveSettings();
