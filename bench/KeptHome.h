// A home that stays until the program ends, for jobs that make many files: a file system is slow to make new ones where
// others were removed a moment ago, and the job that comes next would pay for that.
#pragma once

#include "platform/testing/TempHome.h"

const TempHome& KeptHome();
