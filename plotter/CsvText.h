// What was received, as comma separated values that this program reads again.
#pragma once

#include <QIODevice>

#include "plotter/Recording.h"

// "time" and the names of the series.
std::string CsvHeader(const Recording& recording);
// The row of the last line that gave a point: its time in seconds, and a value or nothing for each
// series. Numbers have as many digits as it takes to read the same again.
std::string CsvNewestRow(const Recording& recording);

// Header and all rows that are kept. False when the device does not take them.
bool WriteCsv(const Recording& recording, QIODevice& device);
