// A home that nobody removes: bench/run does, with the folder that all of them stand in, when everything is measured. A
// file system may be slow to make files where others were removed a moment ago, and the next job would pay for that.
#pragma once

#include "platform/testing/TempHome.h"

const TempHome& KeptHome();
