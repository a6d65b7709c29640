// The memory of this process.
#pragma once

// Peak of the resident memory since the last call, in MB of 2^20 bytes.
double TakePeakMemory();
