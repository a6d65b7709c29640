#include "platform/testing/MemoryBrowser.h"
#include "tests/platform/browser/Collection.h"

#include "platform/com/ComError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <thread>

namespace
{

MemoryWindow Page()
{
    return {MemoryWindow::Kind::Page, L"http://x/", L"x", {{L"http://x/a.png", 3, 4}}, {L"http://x/b.mp3"}};
}

// Makes every call of the object model once; the results by the order of the calls.
std::vector<HRESULT> WalkAll()
{
    std::vector<HRESULT> results;
    const auto note = [&](HRESULT result) { return results.push_back(result), result == S_OK; };
    CComPtr<IUnknown> object;
    CComPtr<IShellWindows> windows;
    CComPtr<IDispatch> window, page, element;
    CComPtr<IWebBrowser2> browser;
    CComPtr<IHTMLDocument2> document;
    CComPtr<IHTMLElementCollection> images, links, again;
    CComPtr<IHTMLImgElement> image;
    CComPtr<IHTMLAnchorElement> anchor;
    CComBSTR text;
    LONG number = 0;
    const VARIANT first = VariantI4(0);
    void** const made = reinterpret_cast<void**>(object.Receive());
    if (!note(CoCreateInstance(CLSID_ShellWindows, nullptr, CLSCTX_ALL, IUnknown::kIid, made)) ||
        !note(OleRun(object.Get())) || !note(object.QueryInterface(windows)) || !note(windows->get_Count(&number)) ||
        !note(windows->Item(first, window.Receive())) || !note(window.QueryInterface(browser)) ||
        !note(browser->get_Document(page.Receive())) || !note(page.QueryInterface(document)))
        return results;
    note(document->get_title(text.Receive()));
    note(document->get_URL(text.Receive()));
    if (note(document->get_images(images.Receive())) && note(images.QueryInterface(again)) &&
        note(images->get_length(&number)) && note(images->item(first, first, element.Receive())) &&
        note(element.QueryInterface(image)))
    {
        note(image->get_src(text.Receive()));
        note(image->get_width(&number));
        note(image->get_height(&number));
    }
    if (note(document->get_links(links.Receive())) && note(links->item(first, first, element.Receive())) &&
        note(element.QueryInterface(anchor)))
        note(anchor->get_href(text.Receive()));
    return results;
}

TEST(MemoryBrowser, EveryFailureArrivesAndLeavesNoObject)
{
    MemoryBrowser browser;
    browser.SetWindows({Page()});
    CoInitialize(nullptr);
    const std::vector<HRESULT> sound = WalkAll();
    EXPECT_EQ(std::set<HRESULT>(sound.begin(), sound.end()), std::set<HRESULT>{S_OK});
    const std::vector<std::string> calls = browser.Calls();
    ASSERT_EQ(calls.size(), sound.size());
    std::map<std::string, int> seen;
    for (std::size_t i = 0; i < calls.size(); ++i)
    {
        browser.Fail(calls[i], E_OUTOFMEMORY, ++seen[calls[i]]);
        const std::vector<HRESULT> results = WalkAll();
        ASSERT_GT(results.size(), i) << calls[i];
        EXPECT_EQ(results[i], E_OUTOFMEMORY) << calls[i];
        EXPECT_EQ(std::ranges::count(results, E_OUTOFMEMORY), 1) << calls[i];
        EXPECT_EQ(browser.LiveObjects(), 0) << calls[i];
    }
    EXPECT_EQ(seen.size(), 21U); // every name that the header lists
    CoUninitialize();
}

TEST(MemoryBrowser, KindsOfWindows)
{
    MemoryBrowser browser;
    CoInitialize(nullptr);
    CComPtr<IShellWindows> windows;
    ASSERT_EQ(OpenCollection(windows), S_OK);
    using Kind = MemoryWindow::Kind;
    const std::pair<Kind, HRESULT> kinds[] = {{Kind::Page, S_OK},
                                              {Kind::NoPage, S_OK},
                                              {Kind::Folder, E_NOINTERFACE},
                                              {Kind::Sleeping, RPC_E_TIMEOUT},
                                              {Kind::NotHtml, E_NOINTERFACE}};
    for (const auto& [kind, expected] : kinds)
    {
        MemoryWindow window = Page();
        window.kind = kind;
        browser.SetWindows({window});
        ASSERT_EQ(Count(windows), 1);
        HRESULT failure = E_FAIL;
        EXPECT_EQ(static_cast<bool>(DocumentOf(windows, 0, &failure)), kind == Kind::Page);
        EXPECT_EQ(failure, expected);
    }
    CoUninitialize();
}

TEST(Com, NeedsInitializingOnEachThreadAndNests)
{
    const auto create = [](REFCLSID clsid) {
        CComPtr<IUnknown> object;
        return CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IUnknown::kIid, reinterpret_cast<void**>(object.Receive()));
    };
    const MemoryBrowser browser;
    EXPECT_EQ(create(CLSID_ShellWindows), CO_E_NOTINITIALIZED);
    EXPECT_EQ(CoInitialize(nullptr), S_OK);
    EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
    CoUninitialize();
    EXPECT_EQ(create(CLSID_ShellWindows), S_OK);
    EXPECT_EQ(create(IUnknown::kIid), REGDB_E_CLASSNOTREG);
    std::thread([&] { EXPECT_EQ(create(CLSID_ShellWindows), CO_E_NOTINITIALIZED); }).join();
    CoUninitialize();
    CoUninitialize();
    EXPECT_EQ(create(CLSID_ShellWindows), CO_E_NOTINITIALIZED);
    EXPECT_EQ(OleRun(nullptr), E_POINTER);
}

TEST(Com, StringsVariantsAndErrors)
{
    BSTR text = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(std::wstring(text, SysStringLen(text)), std::wstring(L"a\0b", 3));
    EXPECT_EQ(text[3], L'\0');
    SysFreeString(text);
    SysFreeString(nullptr);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    VARIANT value = VariantI4(5);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(value.vt, VT_EMPTY);
    value.vt = 77;
    EXPECT_EQ(VariantClear(&value), E_INVALIDARG);
    EXPECT_NO_THROW(_com_util_CheckError(S_FALSE));
    try
    {
        _com_util_CheckError(E_ABORT);
        FAIL();
    }
    catch (const _com_error& error)
    {
        EXPECT_EQ(error.Error(), E_ABORT);
    }
}

} // namespace
