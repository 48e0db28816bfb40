// Send Listing: the device's listing to the companion editor by way of the clipboard.
// Interface thread.
#pragma once

// Sends LIST ALL and records what comes, up to the prompt that CaptureText watches for.
void RequestListing();

// Hands a listing over that is complete; else does nothing. Called by each poll.
void FinishSendListing();
