// What of the recorded operations can be seen: the record is walked backwards, and for
// each row of the picture one interval of surely filled columns grows. An operation that
// lies inside the intervals of all its rows, or outside the picture, needs no pixels. Interface
// thread.
#pragma once

#include <vector>

struct PaintRecord;

// Columns of one pixel row that the operations surely fill; equal for none.
struct CoveredColumns {
    int left = 0, right = 0;
};
// Works out what of each operation can be seen, and what of each row of the picture they
// cover together.
void FindSeenParts(PaintRecord* record, std::vector<CoveredColumns>* covered);
