#include "harvest/BrowserWindows.h"

#include "platform/com/Com.h"
#include "platform/com/ComError.h"
#include "platform/text/CodePage.h"

CComPtr<IShellWindows> OpenShellWindows()
{
    CComPtr<IUnknown> object;
    CComPtr<IShellWindows> windows;
    if (FAILED(CoCreateInstance(CLSID_ShellWindows, nullptr, CLSCTX_ALL, IUnknown::kIid,
                                reinterpret_cast<void**>(object.Receive()))) ||
        FAILED(OleRun(object.Get())) || object.QueryInterface(windows) != S_OK)
        return nullptr;
    return windows;
}

LONG CountWindows(IShellWindows& windows)
{
    LONG count = 0;
    _com_util_CheckError(windows.get_Count(&count));
    return count;
}

CComPtr<IHTMLDocument2> DocumentOfWindow(IShellWindows& windows, LONG index)
{
    CComPtr<IDispatch> window;
    VARIANT place = VariantI4(index);
    _com_util_CheckError(windows.Item(place, window.Receive()));
    _com_util_CheckError(VariantClear(&place));
    if (!window)
        return nullptr;
    CComPtr<IWebBrowser2> browser;
    const HRESULT isBrowser = window.QueryInterface(browser);
    if (isBrowser == E_NOINTERFACE)
        return nullptr;
    _com_util_CheckError(isBrowser);
    CComPtr<IDispatch> object;
    CComPtr<IHTMLDocument2> document;
    if (FAILED(browser->get_Document(object.Receive())) || !object || FAILED(object.QueryInterface(document)))
        return nullptr;
    return document;
}

std::string AnsiTextOf(HRESULT result, const CComBSTR& text)
{
    if (result == E_OUTOFMEMORY)
        _com_issue_error(result);
    // A page can put a zero anywhere. Behind one, half of the program would see the text and the other half would not.
    return FAILED(result) ? std::string() : WideToAnsi(text.View().substr(0, text.View().find(L'\0')));
}
