// Whole files of text, and the numbers in them.
#pragma once

#include "platform/system/Memory.h"

#include <cstdint>
#include <string>

enum class ReadResult
{
    Read,
    Unreadable,  // cannot be opened or read
    OutOfMemory, // no room for its length
};

// Reads a file into a block with a terminating zero behind it. Any thread.
ReadResult ReadTextFile(const std::string& path, GlobalPtr<char>& text);

// The number that a text begins with, after white space and a sign; 0 if it begins with none. One that is out of range
// becomes the nearest.
std::int32_t ToNumber(const std::string& text);
