// The pages of the run mode that takes them from a file.
#pragma once

#include <string>

class CUrlList;

// Appends the addresses of cacheurl.xml in the program's folder, each once, without "about:blank". Gives what to tell
// the user when the file cannot be read; empty if it was.
std::string ReadPageList(CUrlList& pages);
