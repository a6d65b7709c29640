#include "app/PageList.h"

#include "base/FormatText.h"
#include "base/Paths.h"
#include "base/TextFile.h"
#include "base/UrlList.h"
#include "persist/XmlDoc.h"
#include "resources/ResourceIds.h"

#include "platform/window/Resource.h"

#include <new>
#include <unordered_set>

namespace
{

constexpr const char* kFileName = "cacheurl.xml";

void TakePages(CXmlDoc& document, CUrlList& pages)
{
    std::unordered_set<std::string> taken{"about:blank"};
    if (!document.FindNext("URLCACHE"))
        return;
    while (document.FindNextChild("URL"))
    {
        std::string url = document.GetChildText();
        if (taken.insert(url).second)
            pages.AddTail(url);
    }
}

} // namespace

std::string ReadPageList(CUrlList& pages)
{
    GlobalPtr<char> text;
    switch (ReadTextFile(PathInFolder(GetInstallFolder(), kFileName), text))
    {
    case ReadResult::Unreadable:
        return FormatText(IDS_NO_URL_CACHE, "%s", kFileName);
    case ReadResult::OutOfMemory:
        return AfxLoadString(IDS_NO_MEMORY);
    case ReadResult::Read:
        break;
    }
    try
    {
        CXmlDoc document;
        const bool parsed = document.SetText(text.get());
        text.reset();
        if (!parsed)
            return AfxLoadString(IDS_BAD_URL_CACHE);
        TakePages(document, pages);
    }
    catch (const std::bad_alloc&)
    {
        return AfxLoadString(IDS_NO_MEMORY);
    }
    return {};
}
