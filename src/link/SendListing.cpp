#include "link/SendListing.h"

#include "terminal/screen/Capture.h"
#include "terminal/screen/NotBuilt.h"

void FinishSendListing() {
    SetListingState(kListingIdle);
    TellNotBuilt("Handing a listing to the editor");
}
