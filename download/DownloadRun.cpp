#include "download/DownloadRun.h"

#include "base/FormatText.h"
#include "base/InternetHandles.h"
#include "base/Paths.h"
#include "base/UrlList.h"
#include "download/CacheLookup.h"
#include "download/CookieSwitch.h"
#include "download/LocalName.h"
#include "download/ProgressFields.h"
#include "download/SizeFilter.h"
#include "resources/ResourceIds.h"

#include "platform/system/LastError.h"
#include "platform/window/Resource.h"
#include "platform/window/WinApp.h"

#include <algorithm>
#include <new>

namespace
{

// Each one more has lost the place to another program.
constexpr int kMostTries = 100;

} // namespace

void CDownloadRun::DownloadFiles(const CUrlList& urls)
{
    EnterSaveFolder();
    ProgressFields().SetTitle(IDS_DOWNLOADING);
    OnFetchBegins();
    {
        const CInternetHandle internet(InternetOpenA("Vantroy", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
        if (MaySendCookies())
            InternetUseCookies(internet.get());
        CCacheLookup cache(urls);
        for (auto url = urls.begin(); url != urls.end();)
        {
            const Pass pass = DownloadOne(*url, cache, internet.get());
            if (pass == Pass::Leave)
                break;
            if (pass == Pass::Next)
                ++url;
        }
    }
    m_bRunning = 0; // before the button says "OK", whose press asks no question
    ProgressFields().SetTitle(IDS_DOWNLOAD_COMPLETE);
    ProgressFields().SetCancelAllText(IDS_OK);
    ProgressFields().ShowCancelCurrent(false);
    OnFetchEnds();
}

// A folder that is still wrong after the settings sheet has closed makes every item fail in silence.
void CDownloadRun::EnterSaveFolder()
{
    const std::string folder = m_setting.GetSaveFolder();
    if (_chdir(folder.c_str()) != -1)
        return;
    AfxMessageBox(FormatText(IDS_NO_FOLDER, "%s", folder));
    OnSetup();
}

// One that finds no memory is left out like any other that fails.
CDownloadRun::Pass CDownloadRun::DownloadOne(const std::string& url, CCacheLookup& cache, HINTERNET internet)
try
{
    if (IsStopRequested())
        return Pass::Leave;
    switch (cache.Find(url))
    {
    case CCacheLookup::Result::BufferTooSmall:
        return Pass::Again;
    case CCacheLookup::Result::OutOfMemory:
        return Pass::Leave;
    case CCacheLookup::Result::NotCached:
        m_bFetchCurrent = 1;
        FetchByHttp(url, internet);
        return Pass::Next;
    case CCacheLookup::Result::Found:
        break;
    }
    m_bFetchCurrent = 1;
    CopyCached(url, cache.Entry());
    return Pass::Next;
}
catch (const std::bad_alloc&)
{
    return Pass::Next;
}

void CDownloadRun::CopyCached(const std::string& url, const INTERNET_CACHE_ENTRY_INFOA& entry)
{
    const std::string name = ItemNameOf(url);
    const DWORD size = entry.dwSizeLow;
    if (IsSizeFiltered(size))
    {
        ShowFiltered(entry.lpszLocalFileName, name);
        return;
    }
    ShowItem(entry.lpszLocalFileName, name, size);
    const std::string path = StoreInFreePlace(name, size, [&](const std::string& place) {
        return CopyFileExA(entry.lpszLocalFileName, place.c_str(), &CopyProgressProc, this, nullptr,
                           COPY_FILE_FAIL_IF_EXISTS) != FALSE;
    });
    if (!path.empty())
        OnFileStored(url, path);
}

std::string CDownloadRun::StoreInFreePlace(const std::string& name, DWORD size,
                                           const std::function<bool(const std::string&)>& store) const
{
    for (int tries = 0; tries < kMostTries; ++tries)
    {
        const std::string folder = PathInFolder(m_setting.GetSaveFolder(), "");
        std::string path = folder + name;
        // Without a folder the place would be wherever the program was started. A number may have gone into a folder's
        // name, and there may be such a folder.
        if (folder.empty() || !MakeLocalName(path, size) || !path.starts_with(folder))
            return {};
        if (store(path))
            return path;
        if (GetLastError() != ERROR_ALREADY_EXISTS)
            return {};
    }
    return {};
}

DWORD CDownloadRun::CopyProgressProc(LARGE_INTEGER total, LARGE_INTEGER transferred, LARGE_INTEGER, LARGE_INTEGER,
                                     DWORD, DWORD, void*, void*, void* data)
{
    CDownloadRun* const run = static_cast<CDownloadRun*>(data);
    if (!run)
        return PROGRESS_CONTINUE;
    run->ProgressFields().SetProgress(transferred.u.LowPart, total.u.LowPart);
    return run->MayGoOn() ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
}

void CDownloadRun::ShowItem(const std::string& from, const std::string& file, DWORD size)
{
    CProgressFields& fields = ProgressFields();
    fields.SetTransferText(from, file);
    fields.SetSizeText(size);
    fields.SetRange(size);
    fields.SetProgress(0, size);
}

void CDownloadRun::ShowFiltered(const std::string& from, const std::string& file)
{
    CProgressFields& fields = ProgressFields();
    fields.SetTransferText(from, file + AfxLoadString(IDS_FILTERED));
    fields.SetSizeText(0);
    fields.SetProgress(0, 0);
}

bool CDownloadRun::MayGoOn() const
{
    return m_bRunning != 0 && m_bFetchCurrent != 0;
}

bool CDownloadRun::IsResolutionListed(LONG width, LONG height) const
{
    if (m_setting.m_bLimitResolution == 0)
        return false;
    const auto listed = m_setting.m_resolutions.Get();
    return std::find(listed->begin(), listed->end(), CResolution{width, height}) != listed->end();
}

bool CDownloadRun::IsSizeFiltered(DWORD size) const
{
    return CSizeLimit::Of(m_setting).IsFiltered(size);
}

bool CDownloadRun::MakeLocalName(std::string& path, DWORD size) const
{
    return FindLocalName(path, size);
}
