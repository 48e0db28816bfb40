// From a source to what the device is to receive. Pure, but for the line ending in
// force. Any thread.
#pragma once

#include <QString>

// Every CR LF, and every CR left, becomes LF.
QString NormaliseLineEndings(QString text);
// Cuts the marker lines at the top that the companion editor writes.
QString StripMarkerLines(QString text);
// What stands behind the first LF; the whole text if there is none.
QString DropFirstLine(const QString& text);
// Without comments, indentation and blank lines; lines end in the line ending in force.
QString CrunchSource(QString text);
