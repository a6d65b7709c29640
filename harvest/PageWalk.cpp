#include "harvest/PageWalk.h"

#include "base/UrlList.h"
#include "download/DownloadRun.h"
#include "harvest/BrowserWindows.h"
#include "harvest/PageHarvest.h"

#include <algorithm>

namespace
{

constexpr std::size_t kEndingLength = 4;

char ToLowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

class CPageWalk
{
public:
    CPageWalk(IHarvestOwner& owner, CUrlList& urls) : m_owner(owner), m_run(owner.Run()), m_urls(urls)
    {}

    void WalkWindow(IHTMLDocument2& document)
    {
        const std::string url = ReadText(document, &IHTMLDocument2::get_URL);
        if (!IsPageListed(m_owner.PageUrls(), url))
            return;
        m_owner.OnPageBegins(url);
        if (m_run.m_setting.m_bImages)
            WalkCollection<IHTMLImgElement>(document, &IHTMLDocument2::get_images, &CPageWalk::TakeImage);
        if (m_run.m_setting.m_bMp3 || m_run.m_setting.m_bFlash)
            WalkCollection<IHTMLAnchorElement>(document, &IHTMLDocument2::get_links, &CPageWalk::TakeLink);
        m_owner.OnPageEnds();
    }

private:
    using GetCollection = HRESULT (IHTMLDocument2::*)(IHTMLElementCollection**);

    // The length is read once: elements that a script adds meanwhile are not seen.
    template <class Element>
    void WalkCollection(IHTMLDocument2& document, GetCollection get, void (CPageWalk::*take)(Element&))
    {
        CComPtr<IHTMLElementCollection> elements;
        LONG length = 0;
        if (FAILED((document.*get)(elements.Receive())) || !elements || FAILED(elements->get_length(&length)))
            return;
        for (LONG index = 0; index < length && m_run.m_bRunning; ++index)
        {
            CComPtr<IDispatch> object;
            CComPtr<Element> element;
            if (SUCCEEDED(elements->item(VariantI4(index), VariantI4(index), object.Receive())) && object &&
                SUCCEEDED(object.QueryInterface(element)))
                (this->*take)(*element.Get());
        }
    }

    void TakeImage(IHTMLImgElement& image)
    {
        const std::string src = ReadText(image, &IHTMLImgElement::get_src);
        LONG width = 0;
        LONG height = 0;
        image.get_width(&width);
        image.get_height(&height);
        if (!m_run.IsResolutionListed(width, height) && !src.empty())
            Take(src);
    }

    void TakeLink(IHTMLAnchorElement& link)
    {
        const std::string href = ReadText(link, &IHTMLAnchorElement::get_href);
        if (IsMediaLink(href, m_run.m_setting.m_bMp3 != 0, m_run.m_setting.m_bFlash != 0))
            Take(href);
    }

    void Take(const std::string& url)
    {
        m_urls.AddTail(url);
        m_owner.OnUrlTaken(url);
    }

    IHarvestOwner& m_owner;
    CDownloadRun& m_run;
    CUrlList& m_urls;
};

} // namespace

bool IsMediaLink(const std::string& href, bool mp3, bool flash)
{
    if (href.size() <= kEndingLength)
        return false;
    std::string ending = href.substr(href.size() - kEndingLength);
    std::transform(ending.begin(), ending.end(), ending.begin(), ToLowerAscii);
    return (mp3 && ending == ".mp3") || (flash && ending == ".swf");
}

bool IsPageListed(const CUrlList& pages, const std::string& url)
{
    if (pages.Contains(url))
        return true;
    return url.ends_with('/') && pages.Contains(url.substr(0, url.size() - 1));
}

bool WalkPages(IHarvestOwner& owner, CUrlList& urls)
{
    const CComPtr<IShellWindows> windows = OpenShellWindows();
    if (!windows)
        return false;
    owner.OnHarvestBegins();
    CPageWalk walk(owner, urls);
    const LONG count = CountWindows(*windows.Get());
    for (LONG index = 0; index < count && owner.Run().m_bRunning; ++index)
    {
        if (const CComPtr<IHTMLDocument2> document = DocumentOfWindow(*windows.Get(), index))
            walk.WalkWindow(*document.Get());
    }
    return true;
}
