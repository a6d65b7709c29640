#include "platform/browser/Browsers.h"

#include "platform/browser/BrowserCookies_p.h"
#include "platform/browser/LoadedCopies_p.h"
#include "platform/browser/ObjectModel.h"
#include "platform/browser/ShellWindows_p.h"
#include "platform/com/Com.h"
#include "platform/internet/UrlCache.h"

namespace
{

std::shared_ptr<browsing::BrowserList>& Browsers()
{
    static std::shared_ptr<browsing::BrowserList> browsers;
    return browsers;
}

} // namespace

void RegisterBrowsers()
{
    const auto browsers = std::make_shared<browsing::BrowserList>();
    Browsers() = browsers;
    RegisterClassFactory(CLSID_ShellWindows, [browsers](CComPtr<IUnknown>& object) {
        return browsing::MakeShellWindows(browsers, object);
    });
    SetUrlCacheSource(std::make_shared<browsing::LoadedCopies>(browsers));
    SetCookieSource(std::make_shared<browsing::BrowserCookies>(browsers));
}

void CloseBrowsers()
{
    RegisterClassFactory(CLSID_ShellWindows, nullptr);
    SetUrlCacheSource(nullptr);
    SetCookieSource(nullptr);
    if (const auto browsers = std::exchange(Browsers(), nullptr))
        browsers->Close();
}
