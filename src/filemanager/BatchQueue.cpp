#include "filemanager/BatchQueue.h"

#include "terminal/screen/NotBuilt.h"

const QString kQueueNext = "$$$next$$$";

void BatchSend(const QString&) { TellNotBuilt("Copying files to the device"); }

void BatchReceive(const QString&) { TellNotBuilt("Copying files from the device"); }

void SendFile(const QString&, bool) { TellNotBuilt("Sending a file"); }
