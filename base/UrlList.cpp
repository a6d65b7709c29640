#include "base/UrlList.h"

#include "platform/text/Mbcs.h"

#include <algorithm>

bool CUrlList::Contains(const std::string& url) const
{
    return std::any_of(m_urls.begin(), m_urls.end(),
                       [&url](const std::string& entry) { return _mbscmp(entry.c_str(), url.c_str()) == 0; });
}

void CUrlList::AddTailOnce(const std::string& url)
{
    if (!Contains(url))
        AddTail(url);
}
