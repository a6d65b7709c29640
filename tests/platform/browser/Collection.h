// The window collection as the program reads it.
#pragma once

#include "platform/browser/Browsers.h"
#include "platform/browser/ObjectModel.h"
#include "platform/com/Com.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

inline bool WaitUntil(const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return condition();
}

// The browsers of one test, on a thread that uses objects.
class Registered
{
public:
    explicit Registered(const std::string& browsers)
    {
        setenv("VANTROY_BROWSER", browsers.c_str(), 1);
        CoInitialize(nullptr);
        RegisterBrowsers();
    }
    ~Registered()
    {
        CloseBrowsers();
        CoUninitialize();
        unsetenv("VANTROY_BROWSER");
    }
};

inline HRESULT OpenCollection(CComPtr<IShellWindows>& windows)
{
    CComPtr<IUnknown> object;
    HRESULT result = CoCreateInstance(CLSID_ShellWindows, nullptr, CLSCTX_ALL, IUnknown::kIid,
                                      reinterpret_cast<void**>(object.Receive()));
    if (result == S_OK)
        result = OleRun(object.Get());
    return result == S_OK ? object.QueryInterface(windows) : result;
}

inline CComPtr<IShellWindows> Opened()
{
    CComPtr<IShellWindows> windows;
    EXPECT_EQ(OpenCollection(windows), S_OK);
    return windows;
}

inline LONG Count(const CComPtr<IShellWindows>& windows)
{
    LONG count = -1;
    return windows->get_Count(&count) == S_OK ? count : -1;
}

// The document of a window; null with the result of the step that failed.
inline CComPtr<IHTMLDocument2> DocumentOf(const CComPtr<IShellWindows>& windows, LONG index, HRESULT* failure = nullptr)
{
    CComPtr<IDispatch> window;
    CComPtr<IWebBrowser2> browser;
    CComPtr<IDispatch> object;
    CComPtr<IHTMLDocument2> document;
    HRESULT result = windows->Item(VariantI4(index), window.Receive());
    if (result == S_OK && window)
        result = window.QueryInterface(browser);
    if (browser)
        result = browser->get_Document(object.Receive());
    if (object)
        result = object.QueryInterface(document);
    if (failure)
        *failure = result;
    return document;
}

template <class Interface>
std::wstring Text(const CComPtr<Interface>& object, HRESULT (Interface::*get)(BSTR*))
{
    CComBSTR text;
    return object && (object.Get()->*get)(text.Receive()) == S_OK ? std::wstring(text.View()) : L"(none)";
}

// "title|address" of every window, "-" for one without a document.
inline std::vector<std::wstring> List(const CComPtr<IShellWindows>& windows)
{
    std::vector<std::wstring> list;
    for (LONG i = 0, count = Count(windows); i < count; ++i)
    {
        const auto document = DocumentOf(windows, i);
        list.push_back(document ? Text(document, &IHTMLDocument2::get_title) + L"|" +
                                      Text(document, &IHTMLDocument2::get_URL)
                                : L"-");
    }
    return list;
}

// All elements of a collection that have the interface.
template <class Element>
std::vector<CComPtr<Element>> Elements(const CComPtr<IHTMLDocument2>& document,
                                       HRESULT (IHTMLDocument2::*get)(IHTMLElementCollection**))
{
    CComPtr<IHTMLElementCollection> collection;
    LONG length = 0;
    if (document && (document.Get()->*get)(collection.Receive()) == S_OK)
        collection->get_length(&length);
    std::vector<CComPtr<Element>> elements;
    for (LONG i = 0; i < length; ++i)
    {
        CComPtr<IDispatch> object;
        CComPtr<Element> element;
        collection->item(VariantI4(i), VariantI4(i), object.Receive());
        if (object && object.QueryInterface(element) == S_OK)
            elements.push_back(element);
    }
    return elements;
}
