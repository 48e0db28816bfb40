// A line of BASIC cut into what is shown in one colour.
#pragma once

#include <QString>
#include <vector>

enum class BasicKind { kPlain, kKeyword, kNumber, kText, kComment, kDirective, kLabel };

struct BasicPiece {
    BasicKind kind;
    int start;  // of the first character, from 0
    int length;
};

// What is shown plain has no piece. Takes time in proportion to the line.
std::vector<BasicPiece> CutBasicLine(const QString& line);

// Whether what would be typed behind the line's end is neither comment nor text in quotes.
bool EndsInCode(const QString& line);
