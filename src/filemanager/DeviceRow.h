// What can be read out of a row of the device's list. Pure.
#pragma once

#include <QString>

// The row is a folder: it holds "<DIR>", in any case.
bool IsFolderRow(const QString& row);

// The row without its first "<DIR>", trimmed.
QString FolderNameInRow(const QString& row);

// What stands from column `fnstart`, counted from 1, trimmed; with 0 the first word.
QString FileNameInRow(const QString& row, int fnstart);

// The flash slot that the row's own text names, as in "Slot 2 available"; 0 for none.
int SlotNamedInRow(const QString& row);
