#include "platform/testing/MemoryBrowser.h"

#include "platform/browser/ObjectModel.h"
#include "platform/com/Com.h"
#include "platform/com/ComObject.h"
#include "platform/com/Runnable.h"

#include <atomic>
#include <utility>

struct MemoryBrowser::State
{
    using Windows = std::vector<std::shared_ptr<const MemoryWindow>>;

    // What a call begins with: it is noted, the hook is called, and the result is S_OK or the failure set for it.
    HRESULT Begin(const std::string& call)
    {
        std::function<void(const std::string&)> before;
        {
            const std::lock_guard lock(mutex);
            calls.push_back(call);
            before = hook;
        }
        if (before)
            before(call);
        const std::lock_guard lock(mutex);
        if (call != failingCall)
            return S_OK;
        ++failingCount;
        return nth == 0 || nth == failingCount ? failure : S_OK;
    }

    Windows Look()
    {
        const std::lock_guard lock(mutex);
        return windows;
    }

    void SetFailure(const std::string& call, HRESULT result, int which)
    {
        const std::lock_guard lock(mutex);
        failingCall = call;
        failure = result;
        nth = which;
        failingCount = 0;
    }

    std::mutex mutex;
    Windows windows;
    std::vector<std::string> calls;
    std::function<void(const std::string&)> hook;
    std::string failingCall;
    HRESULT failure = S_OK;
    int nth = 0;
    int failingCount = 0;
    std::atomic<int> live{0};
};

namespace
{

using StatePtr = std::shared_ptr<MemoryBrowser::State>;

std::string QueryName(REFIID iid)
{
    static const std::pair<IID, const char*> names[] = {
        {IShellWindows::kIid, "IShellWindows"},     {IWebBrowser2::kIid, "IWebBrowser2"},
        {IHTMLDocument2::kIid, "IHTMLDocument2"},   {IHTMLElementCollection::kIid, "IHTMLElementCollection"},
        {IHTMLImgElement::kIid, "IHTMLImgElement"}, {IHTMLAnchorElement::kIid, "IHTMLAnchorElement"},
    };
    for (const auto& [known, name] : names)
    {
        if (known == iid)
            return std::string("QueryInterface ") + name;
    }
    return {};
}

template <class Interface>
class MemoryObject : public CComObject<Interface>
{
public:
    explicit MemoryObject(StatePtr state, bool hasInterface = true)
        : m_state(std::move(state)), m_hasInterface(hasInterface)
    {
        ++m_state->live;
    }
    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        *object = nullptr;
        const std::string name = QueryName(iid);
        const HRESULT result = name.empty() ? S_OK : Begin(name.c_str());
        if (result != S_OK)
            return result;
        if (iid == Interface::kIid && !m_hasInterface)
            return E_NOINTERFACE;
        return CComObject<Interface>::QueryInterface(iid, object);
    }

protected:
    ~MemoryObject() override
    {
        --m_state->live;
    }
    const StatePtr& State() const
    {
        return m_state;
    }
    HRESULT Begin(const char* call) const
    {
        return m_state->Begin(call);
    }
    HRESULT GetText(const char* call, const std::wstring& value, BSTR* text) const
    {
        *text = nullptr;
        const HRESULT result = Begin(call);
        if (result != S_OK)
            return result;
        *text = SysAllocStringLen(value.data(), static_cast<UINT>(value.size()));
        return *text != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    HRESULT GetNumber(const char* call, LONG value, LONG* number) const
    {
        const HRESULT result = Begin(call);
        *number = result == S_OK ? value : 0;
        return result;
    }
    template <class Out>
    static HRESULT Give(CComPtr<Out> object, Out** out)
    {
        *out = object.Get();
        object->AddRef();
        return S_OK;
    }

private:
    StatePtr m_state;
    bool m_hasInterface;
};

class MemoryImageElement : public MemoryObject<IHTMLImgElement>
{
public:
    MemoryImageElement(StatePtr state, MemoryImage image) : MemoryObject(std::move(state)), m_image(std::move(image))
    {}
    HRESULT get_src(BSTR* src) override
    {
        return GetText("IHTMLImgElement::get_src", m_image.src, src);
    }
    HRESULT get_width(LONG* width) override
    {
        return GetNumber("IHTMLImgElement::get_width", m_image.width, width);
    }
    HRESULT get_height(LONG* height) override
    {
        return GetNumber("IHTMLImgElement::get_height", m_image.height, height);
    }

private:
    MemoryImage m_image;
};

class MemoryAnchor : public MemoryObject<IHTMLAnchorElement>
{
public:
    MemoryAnchor(StatePtr state, std::wstring href) : MemoryObject(std::move(state)), m_href(std::move(href))
    {}
    HRESULT get_href(BSTR* href) override
    {
        return GetText("IHTMLAnchorElement::get_href", m_href, href);
    }

private:
    std::wstring m_href;
};

template <class Element, class Value>
class MemoryCollection : public MemoryObject<IHTMLElementCollection>
{
public:
    MemoryCollection(StatePtr state, std::vector<Value> values)
        : MemoryObject(std::move(state)), m_values(std::move(values))
    {}
    HRESULT get_length(LONG* length) override
    {
        return GetNumber("IHTMLElementCollection::get_length", static_cast<LONG>(m_values.size()), length);
    }
    HRESULT item(VARIANT, VARIANT index, IDispatch** element) override
    {
        *element = nullptr;
        const HRESULT result = Begin("IHTMLElementCollection::item");
        if (result != S_OK || index.lVal < 0 || static_cast<std::size_t>(index.lVal) >= m_values.size())
            return result;
        return Give(CComPtr<IDispatch>(new Element(State(), m_values[static_cast<std::size_t>(index.lVal)])), element);
    }

private:
    std::vector<Value> m_values;
};

using WindowPtr = std::shared_ptr<const MemoryWindow>;

class MemoryDocument : public MemoryObject<IHTMLDocument2>
{
public:
    MemoryDocument(StatePtr state, WindowPtr window)
        : MemoryObject(std::move(state), window->kind != MemoryWindow::Kind::NotHtml), m_window(std::move(window))
    {}
    HRESULT get_title(BSTR* title) override
    {
        return GetText("IHTMLDocument2::get_title", m_window->title, title);
    }
    HRESULT get_URL(BSTR* url) override
    {
        return GetText("IHTMLDocument2::get_URL", m_window->url, url);
    }
    HRESULT get_images(IHTMLElementCollection** images) override
    {
        return GetAll<MemoryImageElement>("IHTMLDocument2::get_images", m_window->images, images);
    }
    HRESULT get_links(IHTMLElementCollection** links) override
    {
        return GetAll<MemoryAnchor>("IHTMLDocument2::get_links", m_window->links, links);
    }

private:
    template <class Element, class Value>
    HRESULT GetAll(const char* call, const std::vector<Value>& values, IHTMLElementCollection** all) const
    {
        *all = nullptr;
        const HRESULT result = Begin(call);
        if (result != S_OK)
            return result;
        return Give(CComPtr<IHTMLElementCollection>(new MemoryCollection<Element, Value>(State(), values)), all);
    }

    WindowPtr m_window;
};

class MemoryWindowObject : public MemoryObject<IWebBrowser2>
{
public:
    MemoryWindowObject(StatePtr state, WindowPtr window)
        : MemoryObject(std::move(state), window->kind != MemoryWindow::Kind::Folder), m_window(std::move(window))
    {}
    HRESULT get_Document(IDispatch** document) override
    {
        *document = nullptr;
        const HRESULT result = Begin("IWebBrowser2::get_Document");
        if (result != S_OK)
            return result;
        if (m_window->kind == MemoryWindow::Kind::Sleeping)
            return RPC_E_TIMEOUT;
        return Give(CComPtr<IDispatch>(new MemoryDocument(State(), m_window)), document);
    }

private:
    WindowPtr m_window;
};

// Lets OleRun of the collection be seen and fail.
class MemoryRunner : public MemoryObject<IRunnableObject>
{
public:
    using MemoryObject::MemoryObject;

    HRESULT Run() override
    {
        return Begin("OleRun");
    }
};

class MemoryShellWindows : public MemoryObject<IShellWindows>
{
public:
    using MemoryObject::MemoryObject;

    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        if (iid == IRunnableObject::kIid)
            return CComPtr<IRunnableObject>(new MemoryRunner(State()))->QueryInterface(iid, object);
        return MemoryObject::QueryInterface(iid, object);
    }
    HRESULT get_Count(LONG* count) override
    {
        *count = 0;
        const HRESULT result = Begin("IShellWindows::get_Count");
        if (result != S_OK)
            return result;
        m_windows = State()->Look();
        *count = static_cast<LONG>(m_windows.size());
        return S_OK;
    }
    HRESULT Item(VARIANT index, IDispatch** window) override
    {
        *window = nullptr;
        const HRESULT result = Begin("IShellWindows::Item");
        if (result != S_OK || index.lVal < 0 || static_cast<std::size_t>(index.lVal) >= m_windows.size())
            return result;
        const WindowPtr& found = m_windows[static_cast<std::size_t>(index.lVal)];
        if (found->kind == MemoryWindow::Kind::NoPage)
            return S_OK;
        return Give(CComPtr<IDispatch>(new MemoryWindowObject(State(), found)), window);
    }

private:
    MemoryBrowser::State::Windows m_windows;
};

} // namespace

MemoryBrowser::MemoryBrowser() : m_state(std::make_shared<State>())
{
    RegisterClassFactory(CLSID_ShellWindows, [state = m_state](CComPtr<IUnknown>& object) {
        const HRESULT result = state->Begin("CoCreateInstance");
        if (result == S_OK)
            object = new MemoryShellWindows(state);
        return result;
    });
}

MemoryBrowser::~MemoryBrowser()
{
    RegisterClassFactory(CLSID_ShellWindows, nullptr);
}

void MemoryBrowser::SetWindows(std::vector<MemoryWindow> windows)
{
    State::Windows shared;
    for (MemoryWindow& window : windows)
        shared.push_back(std::make_shared<const MemoryWindow>(std::move(window)));
    const std::lock_guard lock(m_state->mutex);
    m_state->windows = std::move(shared);
}

void MemoryBrowser::Fail(const std::string& call, HRESULT result, int nth)
{
    m_state->SetFailure(call, result, nth);
}

void MemoryBrowser::ClearFailure()
{
    m_state->SetFailure({}, S_OK, 0);
}

void MemoryBrowser::SetHook(std::function<void(const std::string& call)> hook)
{
    const std::lock_guard lock(m_state->mutex);
    m_state->hook = std::move(hook);
}

std::vector<std::string> MemoryBrowser::Calls() const
{
    const std::lock_guard lock(m_state->mutex);
    return m_state->calls;
}

int MemoryBrowser::LiveObjects() const
{
    return m_state->live;
}
