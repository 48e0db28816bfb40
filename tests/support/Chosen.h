// A choice that is made for as long as this stands.
#pragma once

#include "base/Choices.h"

class Chosen {
  public:
    explicit Chosen(int Choices::*choice, int value = 1) : place(ChoicesForTable().*choice) {
        place = value;
    }
    ~Chosen() { place = 0; }

  private:
    int& place;
};
