#include "base/LineEnding.h"

namespace {

LineEnding current = {"\r\n", "CRLF"};

}  // namespace

const LineEnding& lineEnding = current;

void SetLineEnding(const QString& name) {
    current.name = name;
    current.bytes = name == "CR" ? "\r" : name == "LF" ? "\n" : "\r\n";
}
