// The worker of a run: walks the pages of the open browser windows, collects the addresses of the media that the
// settings ask for, and hands the list to the fetch loop on the same thread.
//
// The harvest reads what the browser has loaded. It fetches nothing, parses nothing and waits for no page.
#pragma once

#include "platform/Types.h"

#include <string>

class CDownloadRun;
class CUrlList;

// What the two windows that can own a run answer and do. All but Run and PageUrls are called on the worker thread only.
class IHarvestOwner
{
public:
    virtual CDownloadRun& Run() = 0;
    // The pages to walk, without duplicates; not changed while the worker lives.
    virtual const CUrlList& PageUrls() const = 0;

    // The collection is open and the walk begins.
    virtual void OnHarvestBegins()
    {}
    // A page of the run was found; then its addresses in the order found; then its end.
    virtual void OnPageBegins(const std::string&)
    {}
    virtual void OnUrlTaken(const std::string&)
    {}
    virtual void OnPageEnds()
    {}

    // The walk is over: with nothing to download, or with a list that the fetch loop gets next.
    virtual void OnNothingCollected() = 0;
    virtual void OnCollected()
    {}
    // The last call of every run, however it ended, a failing browser or a lack of memory included: the owner goes back
    // to idle.
    virtual void OnRunEnds() = 0;

protected:
    ~IHarvestOwner() = default;
};

// The body of the worker thread; the parameter is an IHarvestOwner. Its exit code: 0 the walk gave something, 1 the
// collection could not be opened or failed on the way, 3 nothing was collected, -2 no owner.
UINT HarvestPagesProc(void* owner);

// Whether the target of a link is wanted: longer than 4 bytes, and its last 4 bytes are ".mp3" or ".swf", in capitals
// or not, whichever of the two is asked for. A query or a fragment behind them counts as something else.
bool IsMediaLink(const std::string& href, bool mp3, bool flash);

// Whether a page of that address is part of the run: it stands in the list itself, or without its last "/".
bool IsPageListed(const CUrlList& pages, const std::string& url);
