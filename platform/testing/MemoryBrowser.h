// A browser in memory behind the interfaces of browser/ObjectModel.h, in which any call can be made to fail.
#pragma once

#include "platform/Types.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

struct MemoryImage
{
    std::wstring src;
    LONG width = 100;
    LONG height = 100;
};

struct MemoryWindow
{
    enum class Kind
    {
        Page,     // a page with a document
        NoPage,   // Item gives null
        Folder,   // no IWebBrowser2
        Sleeping, // get_Document fails
        NotHtml,  // the document has no IHTMLDocument2
    };

    Kind kind = Kind::Page;
    std::wstring url;
    std::wstring title;
    std::vector<MemoryImage> images;
    std::vector<std::wstring> links;
};

// The calls are named as the program makes them:
//
//   "CoCreateInstance"  "OleRun"
//   "QueryInterface I", where I is IShellWindows, IWebBrowser2, IHTMLDocument2, IHTMLElementCollection,
//       IHTMLImgElement or IHTMLAnchorElement; whether or not the object has it
//   "IShellWindows::get_Count"  "IShellWindows::Item"
//   "IWebBrowser2::get_Document"
//   "IHTMLDocument2::get_title"  "IHTMLDocument2::get_URL"  "IHTMLDocument2::get_images"  "IHTMLDocument2::get_links"
//   "IHTMLElementCollection::get_length"  "IHTMLElementCollection::item"
//   "IHTMLImgElement::get_src"  "IHTMLImgElement::get_width"  "IHTMLImgElement::get_height"
//   "IHTMLAnchorElement::get_href"
class MemoryBrowser
{
public:
    // Enters this browser as the window collection of the program.
    MemoryBrowser();
    ~MemoryBrowser();

    // Thread-safe; a collection sees the windows of its last get_Count.
    void SetWindows(std::vector<MemoryWindow> windows);
    // The nth call (from 1, counted from now) of that name fails with the result; 0 is every call. Replaces an earlier
    // failure.
    void Fail(const std::string& call, HRESULT result, int nth = 0);
    void ClearFailure();
    // Called before each call with its name, on the calling thread: to wait, to count, to change flags, to set the
    // failure of this very call. May be null.
    void SetHook(std::function<void(const std::string& call)> hook);
    // Names of all calls so far, in order.
    std::vector<std::string> Calls() const;
    // Objects of this browser that are still alive: 0 when every reference was released.
    int LiveObjects() const;

    struct State;

private:
    std::shared_ptr<State> m_state;
};
