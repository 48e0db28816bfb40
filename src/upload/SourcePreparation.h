// From a source to what the device is to receive. Pure, but for the line ending in
// force. Any thread.
#pragma once

#include <QString>

// Every CR LF, and every CR left, becomes LF.
QString NormaliseLineEndings(QString text);
// The place behind the marker lines from `start` on that the companion editor writes.
int BehindMarkerLines(const QString& text, int start);
// Cuts those at the top.
QString StripMarkerLines(const QString& text);
// Without comments, indentation and blank lines; lines end in the line ending in force.
QString CrunchSource(const QString& source);
