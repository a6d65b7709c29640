// What the layer itself does with all worker threads.
#pragma once

// CancelSynchronousIo for every worker thread, those to come too. Any thread.
void CancelSynchronousIoOfAll();
