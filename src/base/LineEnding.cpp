#include "base/LineEnding.h"

namespace {

LineEnding current = {"\r\n", "CRLF"};

}  // namespace

const LineEnding& lineEnding = current;

void SetLineEnding(const QString& name) {
    current.name = name;
    current.bytes = kLineEndings[0].bytes;
    for (const LineEndingRow& row : kLineEndings) {
        if (name == row.name) current.bytes = row.bytes;
    }
}
