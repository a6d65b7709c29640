// The body of a run: brings each address of a list into the save folder, from the browser's own copy where there is
// one, otherwise over HTTP. Both windows that can own a run derive from it and answer what differs between them.
//
// DownloadFiles runs on the run's worker thread. Nothing is retried; what goes wrong with one item is silent, and the
// run goes on with the next.
#pragma once

#include "base/Flag.h"
#include "persist/DownloadSetting.h"

#include "platform/files/FileCalls.h"
#include "platform/internet/Internet.h"

#include <functional>
#include <string>

class CCacheLookup;
class CFetchedBody;
class CProgressFields;
class CUrlList;
struct INTERNET_CACHE_ENTRY_INFOA;

class CDownloadRun
{
public:
    CDownloadSetting m_setting;
    CFlag m_bRunning = 0;      // a run is going on; clearing it asks the worker to stop
    CFlag m_bFetchCurrent = 1; // the item in hand may go on

    // Works through the list from head to tail. Called once a run, with a list that is not empty.
    void DownloadFiles(const CUrlList& urls);

    // True for a size of image that the settings do not want.
    bool IsResolutionListed(LONG width, LONG height) const;
    // True for a size in bytes that the settings do not want.
    bool IsSizeFiltered(DWORD size) const;
    // See FindLocalName.
    bool MakeLocalName(std::string& path, DWORD size) const;

    // Fetches one address by one GET and stores it. True if the exchange reached the body, also if the item was then
    // cancelled or not stored.
    bool FetchByHttp(const std::string& url, HINTERNET internet);
    // Puts a fetched body into the save folder: the full path of the new file, or empty if nothing was stored. The file
    // appears whole, in a place where nothing stands.
    std::string SaveFetchedData(const std::string& name, CFetchedBody& body);

    // The progress routine of a copy; `data` is the run. See CopyFileExA.
    static DWORD CopyProgressProc(LARGE_INTEGER total, LARGE_INTEGER transferred, LARGE_INTEGER, LARGE_INTEGER, DWORD,
                                  DWORD, void*, void*, void* data);

protected:
    ~CDownloadRun() = default;

    // What differs between the owners, called on the worker thread.

    virtual CProgressFields& ProgressFields() = 0;
    // Whether the loop ends before the next item.
    virtual bool IsStopRequested() const = 0;
    // Before the first item.
    virtual void OnFetchBegins()
    {}
    // An item was stored: its address, and the path of its file.
    virtual void OnFileStored(const std::string&, const std::string&)
    {}
    // After the last item, with the closing texts already set and the run no longer running: the history.
    virtual void OnFetchEnds() = 0;
    // The Setup command: opens the settings sheet and returns when it has closed.
    virtual void OnSetup() = 0;

private:
    enum class Pass
    {
        Next,
        Again,
        Leave,
    };

    void EnterSaveFolder();
    Pass DownloadOne(const std::string& url, CCacheLookup& cache, HINTERNET internet);
    void CopyCached(const std::string& url, const INTERNET_CACHE_ENTRY_INFOA& entry);
    // Has `store` make a file in a place that is free, and in another one where somebody else was faster: the path, or
    // empty if nothing was stored.
    std::string StoreInFreePlace(const std::string& name, DWORD size,
                                 const std::function<bool(const std::string& path)>& store) const;
    void ShowItem(const std::string& from, const std::string& file, DWORD size);
    void ShowFiltered(const std::string& from, const std::string& file);
    bool MayGoOn() const;
    void ReceiveBody(HINTERNET request, CFetchedBody& body);
};
