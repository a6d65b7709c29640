// Paths between the program's byte text and the file system, which takes UTF-8.
#pragma once

#include <string>

// With a UTF-8 code page the bytes pass as they are, so that a name that is no UTF-8 stays within reach.
std::string NativePath(const std::string& path);
std::string PathFromNative(const std::string& native);

// Moves `fresh` to the place of `target` in one step; false with the last error set.
bool ReplaceFileBy(const std::string& fresh, const std::string& target);
// The same, but false with ERROR_ALREADY_EXISTS if anything stands there.
bool MoveToFreePlace(const std::string& fresh, const std::string& target);
