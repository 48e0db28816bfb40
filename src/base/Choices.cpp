#include "base/Choices.h"

namespace {

Choices held;

}  // namespace

const Choices& choices = held;

Choices& ChoicesForTable() {
    return held;
}
