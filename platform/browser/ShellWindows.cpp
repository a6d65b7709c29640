#include "platform/browser/ShellWindows_p.h"

#include "platform/browser/Document_p.h"
#include "platform/browser/ObjectModel.h"
#include "platform/com/ComObject.h"
#include "platform/com/Guard_p.h"

#include <utility>

namespace browsing
{
namespace
{

class ShellWindows : public CComObject<IShellWindows>
{
public:
    explicit ShellWindows(std::shared_ptr<BrowserList> browsers) : m_browsers(std::move(browsers))
    {}
    HRESULT get_Count(LONG* count) override
    {
        *count = 0;
        return GuardedCall([&] {
            m_pages.clear();
            const HRESULT result = m_browsers->Look(m_pages);
            if (FAILED(result))
                m_pages.clear();
            *count = static_cast<LONG>(m_pages.size());
            return result;
        });
    }
    HRESULT Item(VARIANT index, IDispatch** window) override
    {
        *window = nullptr;
        if (index.vt != VT_I4)
            return E_INVALIDARG;
        if (index.lVal < 0 || static_cast<std::size_t>(index.lVal) >= m_pages.size())
            return S_OK;
        return GuardedCall([&] {
            CComPtr<IDispatch> made = MakeWindow(m_pages[static_cast<std::size_t>(index.lVal)]);
            *window = made.Get();
            made->AddRef();
            return S_OK;
        });
    }

private:
    const std::shared_ptr<BrowserList> m_browsers;
    std::vector<SeenPage> m_pages;
};

} // namespace

HRESULT MakeShellWindows(const std::shared_ptr<BrowserList>& browsers, CComPtr<IUnknown>& object)
{
    const HRESULT result = browsers->Reach();
    if (SUCCEEDED(result))
        object = new ShellWindows(browsers);
    return result;
}

} // namespace browsing
