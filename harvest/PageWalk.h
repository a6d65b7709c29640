// The walk over the open windows of one run, on the worker thread.
#pragma once

class CUrlList;
class IHarvestOwner;

// Appends the addresses of all media of the run's pages to `urls`: windows in the order of the collection, in a window
// its images and then its links, each in document order, duplicates kept. False if the collection could not be opened;
// a failure of the collection on the way raises a _com_error. What fails inside a page is skipped.
bool WalkPages(IHarvestOwner& owner, CUrlList& urls);
