// The browser object model as the program uses it: the open windows, their documents, and in a document the images and
// the links. Texts are wide strings, allocated by the callee, freed with SysFreeString. Every call may block until the
// browser answers; limits are told in platform/README.md. Objects belong to the thread that got them.
#pragma once

#include "platform/com/Bstr.h"
#include "platform/com/ComPtr.h"
#include "platform/com/Variant.h"

class IHTMLImgElement : public IDispatch
{
public:
    static constexpr IID kIid{0x3050F240, 0x98B5, 0x11CF, {0xBB, 0x82, 0x00, 0xAA, 0x00, 0xBD, 0xCE, 0x0B}};

    // The address that the browser has loaded, else the element's own, absolute; empty if it names none.
    virtual HRESULT get_src(BSTR* src) = 0;
    // Size of the element in pixels as laid out, not that of the file.
    virtual HRESULT get_width(LONG* width) = 0;
    virtual HRESULT get_height(LONG* height) = 0;

protected:
    ~IHTMLImgElement() = default;
};

class IHTMLAnchorElement : public IDispatch
{
public:
    static constexpr IID kIid{0x3050F1DA, 0x98B5, 0x11CF, {0xBB, 0x82, 0x00, 0xAA, 0x00, 0xBD, 0xCE, 0x0B}};

    // Target of the link, absolute.
    virtual HRESULT get_href(BSTR* href) = 0;

protected:
    ~IHTMLAnchorElement() = default;
};

class IHTMLElementCollection : public IDispatch
{
public:
    static constexpr IID kIid{0x3050F21F, 0x98B5, 0x11CF, {0xBB, 0x82, 0x00, 0xAA, 0x00, 0xBD, 0xCE, 0x0B}};

    virtual HRESULT get_length(LONG* length) = 0;
    // Both arguments hold the index as VT_I4. An index out of range gives S_OK and null.
    virtual HRESULT item(VARIANT name, VARIANT index, IDispatch** element) = 0;

protected:
    ~IHTMLElementCollection() = default;
};

class IHTMLDocument2 : public IDispatch
{
public:
    static constexpr IID kIid{0x332C4425, 0x26CB, 0x11D0, {0xB4, 0x83, 0x00, 0xC0, 0x4F, 0xD9, 0x01, 0x19}};

    virtual HRESULT get_title(BSTR* title) = 0;
    virtual HRESULT get_URL(BSTR* url) = 0;
    // Elements in document order, as they were when the collection was asked for.
    virtual HRESULT get_images(IHTMLElementCollection** images) = 0;
    virtual HRESULT get_links(IHTMLElementCollection** links) = 0;

protected:
    ~IHTMLDocument2() = default;
};

class IWebBrowser2 : public IDispatch
{
public:
    static constexpr IID kIid{0xD30C1661, 0xCDAF, 0x11D0, {0x8A, 0x3E, 0x00, 0xC0, 0x4F, 0xC9, 0xE2, 0x6E}};

    // Fails for a window whose page does not answer (a sleeping tab, a page that hangs). The document of a page that is
    // no HTML has no IHTMLDocument2.
    virtual HRESULT get_Document(IDispatch** document) = 0;

protected:
    ~IWebBrowser2() = default;
};

class IShellWindows : public IDispatch
{
public:
    static constexpr IID kIid{0x85CB6900, 0x4D95, 0x11CF, {0x96, 0x0C, 0x00, 0x80, 0xC7, 0xF4, 0xEE, 0x85}};

    // Looks at the browsers anew; the windows keep their order until the next call.
    virtual HRESULT get_Count(LONG* count) = 0;
    // The window at an index (VT_I4) of the last look. S_OK with null for an index out of range.
    virtual HRESULT Item(VARIANT index, IDispatch** window) = 0;

protected:
    ~IShellWindows() = default;
};

inline constexpr CLSID CLSID_ShellWindows{0x9BA05972, 0xF6A8, 0x11CF, {0xA4, 0x42, 0x00, 0xA0, 0xC9, 0x0A, 0x8F, 0x39}};
