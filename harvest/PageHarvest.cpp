#include "harvest/PageHarvest.h"

#include "base/UrlList.h"
#include "download/DownloadRun.h"
#include "harvest/PageWalk.h"

#include "platform/com/Com.h"
#include "platform/com/ComError.h"

#include <new>

namespace
{

enum ExitCode : int
{
    kHandedOver = 0,
    kNoCollection = 1,
    kNothingCollected = 3,
    kNoOwner = -2,
};

class CComApartment
{
public:
    CComApartment()
    {
        CoInitialize(nullptr);
    }
    ~CComApartment()
    {
        CoUninitialize();
    }
};

// Walks the pages and hands over. Everything that this run took from the browser is released when it returns.
ExitCode RunWorker(IHarvestOwner& owner)
{
    CUrlList urls;
    if (!WalkPages(owner, urls))
        return kNoCollection;
    if (urls.IsEmpty())
    {
        owner.OnNothingCollected();
        return kNothingCollected;
    }
    owner.OnCollected();
    if (owner.Run().m_bRunning)
        owner.Run().DownloadFiles(urls);
    return kHandedOver;
}

} // namespace

UINT HarvestPagesProc(void* parameter)
{
    if (!parameter)
        return static_cast<UINT>(kNoOwner);
    IHarvestOwner& owner = *static_cast<IHarvestOwner*>(parameter);
    ExitCode result = kNoCollection;
    try
    {
        const CComApartment apartment;
        result = RunWorker(owner);
    }
    catch (const _com_error&)
    {}
    catch (const std::bad_alloc&)
    {}
    owner.OnRunEnds();
    return static_cast<UINT>(result);
}
