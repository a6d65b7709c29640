#include "platform/testing/MemoryBrowser.h"
#include "tests/platform/browser/Collection.h"

#include <gtest/gtest.h>

#include <thread>

TEST(Com, NeedsInitializingOnEachThreadAndNests)
{
    const MemoryBrowser browser;
    const auto create = [&browser](REFCLSID clsid) {
        CComPtr<IUnknown> object;
        void** const place = reinterpret_cast<void**>(object.Receive());
        const HRESULT result = CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IUnknown::kIid, place);
        EXPECT_EQ(browser.LiveObjects(), result == S_OK ? 1 : 0);
        return result;
    };
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

TEST(Com, TextsEndAndAreCountedWhateverIsInThem)
{
    BSTR text = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(std::wstring(text, SysStringLen(text) + 1), std::wstring(L"a\0b\0", 4));
    SysFreeString(text);
    SysFreeString(nullptr);
    EXPECT_EQ(SysStringLen(SysAllocString(nullptr)), 0U);
}
