// The SUBs and FUNCTIONs of a source.
#pragma once

#include <QString>
#include <vector>

struct Procedure {
    QString name;  // "SUB Draw", as the source spells it
    int line;      // from 1
};

std::vector<Procedure> ProceduresOf(const QString& source);

// The line, from 1, that the last report of an error in a text names, by "[n]" or by
// "Error in line n"; 0 for none.
int ReportedLine(const QString& text);
