#include "editor/Procedures.h"

#include <QRegularExpression>

std::vector<Procedure> ProceduresOf(const QString& source) {
    static const QRegularExpression begin(
        "^[ \t]*(?:\\d+[ \t]*)?((?:SUB|FUNCTION|CSUB)[ \t]+[A-Za-z_][\\w.]*[$%!]?)",
        QRegularExpression::CaseInsensitiveOption);
    std::vector<Procedure> procedures;
    int number = 0;
    for (const QString& line :
         QString(source).replace("\r\n", "\n").replace('\r', '\n').split('\n')) {
        ++number;
        const QRegularExpressionMatch found = begin.match(line);
        if (found.hasMatch()) procedures.push_back({found.captured(1).simplified(), number});
    }
    return procedures;
}

int ReportedLine(const QString& text) {
    static const QRegularExpression report("\\[(\\d{1,9})\\]|error in line (\\d{1,9})",
                                           QRegularExpression::CaseInsensitiveOption);
    int line = 0;
    for (auto found = report.globalMatch(text); found.hasNext();) {
        line = found.next().captured(0).remove(QRegularExpression("\\D")).toInt();
    }
    return line;
}
