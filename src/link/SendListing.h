// Send Listing: the device's listing to the companion editor by way of the clipboard.
// Interface thread.
#pragma once

// Hands the completed listing over: called by the poll when the prompt has come.
void FinishSendListing();
