#include "platform/browser/Document_p.h"

#include "platform/browser/Scripts_p.h"
#include "platform/com/ComObject.h"
#include "platform/com/Guard_p.h"

#include <QJsonArray>

#include <utility>

namespace browsing
{
namespace
{

// How long a page may take to tell all its images or links. One with a hundred thousand needs less than a second.
constexpr std::chrono::seconds kCollectionLimit(30);

// A half of a surrogate pair, which a page can hold, becomes U+FFFD.
HRESULT GiveText(const QString& text, BSTR* out)
{
    *out = nullptr;
    return GuardedCall([&] {
        const std::wstring wide = text.toStdWString();
        *out = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
        return *out != nullptr ? S_OK : E_OUTOFMEMORY;
    });
}

template <class Interface>
HRESULT Give(CComPtr<Interface> object, Interface** out)
{
    *out = object.Get();
    object->AddRef();
    return S_OK;
}

class Image : public CComObject<IHTMLImgElement>
{
public:
    // ["https://…", width, height]
    explicit Image(const QJsonArray& image) : m_image(image)
    {}
    HRESULT get_src(BSTR* src) override
    {
        return GiveText(m_image.at(0).toString(), src);
    }
    HRESULT get_width(LONG* width) override
    {
        *width = m_image.at(1).toInt();
        return S_OK;
    }
    HRESULT get_height(LONG* height) override
    {
        *height = m_image.at(2).toInt();
        return S_OK;
    }

private:
    const QJsonArray m_image;
};

// An A element, or an AREA element, which has no IHTMLAnchorElement.
class Link : public CComObject<IHTMLAnchorElement>
{
public:
    // ["https://…", is an A element]
    explicit Link(const QJsonArray& link) : m_link(link)
    {}
    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        *object = nullptr;
        if (iid == IHTMLAnchorElement::kIid && !m_link.at(1).toBool())
            return E_NOINTERFACE;
        return CComObject::QueryInterface(iid, object);
    }
    HRESULT get_href(BSTR* href) override
    {
        return GiveText(m_link.at(0).toString(), href);
    }

private:
    const QJsonArray m_link;
};

template <class Element>
class Collection : public CComObject<IHTMLElementCollection>
{
public:
    explicit Collection(QJsonArray elements) : m_elements(std::move(elements))
    {}
    HRESULT get_length(LONG* length) override
    {
        *length = static_cast<LONG>(m_elements.size());
        return S_OK;
    }
    HRESULT item(VARIANT, VARIANT index, IDispatch** element) override
    {
        *element = nullptr;
        if (index.vt != VT_I4)
            return E_INVALIDARG;
        if (index.lVal < 0 || index.lVal >= m_elements.size())
            return S_OK;
        return GuardedCall(
            [&] { return Give(CComPtr<IDispatch>(new Element(m_elements.at(index.lVal).toArray())), element); });
    }

private:
    const QJsonArray m_elements;
};

// Address and title are those of the look; the elements are asked for when they are wanted.
class Document : public CComObject<IHTMLDocument2>
{
public:
    explicit Document(SeenPage page) : m_page(std::move(page))
    {}
    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        *object = nullptr;
        if (iid == IHTMLDocument2::kIid && !m_page.isHtml)
            return E_NOINTERFACE;
        return CComObject::QueryInterface(iid, object);
    }
    HRESULT get_title(BSTR* title) override
    {
        return GiveText(m_page.title, title);
    }
    HRESULT get_URL(BSTR* url) override
    {
        return GiveText(m_page.url, url);
    }
    HRESULT get_images(IHTMLElementCollection** images) override
    {
        return GetAll<Image>(ImagesScript(), images);
    }
    HRESULT get_links(IHTMLElementCollection** links) override
    {
        return GetAll<Link>(LinksScript(), links);
    }

private:
    template <class Element>
    HRESULT GetAll(const QString& script, IHTMLElementCollection** all)
    {
        *all = nullptr;
        return GuardedCall([&] {
            QJsonValue value;
            const HRESULT result = m_page.world->Evaluate(script, Clock::now() + kCollectionLimit, value);
            return FAILED(result)
                       ? result
                       : Give(CComPtr<IHTMLElementCollection>(new Collection<Element>(value.toArray())), all);
        });
    }

    const SeenPage m_page;
};

class Window : public CComObject<IWebBrowser2>
{
public:
    explicit Window(SeenPage page) : m_page(std::move(page))
    {}
    HRESULT get_Document(IDispatch** document) override
    {
        *document = nullptr;
        if (FAILED(m_page.result))
            return m_page.result;
        return GuardedCall([&] { return Give(CComPtr<IDispatch>(new Document(m_page)), document); });
    }

private:
    const SeenPage m_page;
};

} // namespace

CComPtr<IDispatch> MakeWindow(SeenPage page)
{
    return CComPtr<IDispatch>(new Window(std::move(page)));
}

} // namespace browsing
