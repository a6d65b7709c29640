// Histories of any size.
#pragma once

#include "persist/HistoryStore.h"

#include <string>

std::string PageUrl(int page);
CHistoryItem PageWithFiles(int page, int files);
// Marks all files of the pages 0 .. pages - 1 as saved in the folder.
void MarkAll(CHistoryStore& store, int pages, int files, const std::string& folder);
// Writes the day files of distinct pages, spread over the days of a year, with `files` files each.
void WriteHistory(int pages, int files, const std::string& folder);
