// Reaching the documents of the open browser windows. On any thread that has called CoInitialize; what is opened here
// belongs to that thread.
#pragma once

#include "platform/browser/ObjectModel.h"

#include <string>

// Opens the window collection; null if that fails.
CComPtr<IShellWindows> OpenShellWindows();

// Number of windows, of browsers and others alike. A failure raises a _com_error.
LONG CountWindows(IShellWindows& windows);

// The HTML document of the window at an index; null for a window that has none. A failure of the collection itself, or
// of asking a window whether it is a browser, raises a _com_error.
CComPtr<IHTMLDocument2> DocumentOfWindow(IShellWindows& windows, LONG index);

// A text that an operation hands out, up to its first zero, in the system's code page; empty where the operation fails.
// Raises a _com_error when there was no memory for the text.
template <class Interface>
std::string ReadText(Interface& object, HRESULT (Interface::*operation)(BSTR*));

// ---

std::string AnsiTextOf(HRESULT result, const CComBSTR& text);

template <class Interface>
std::string ReadText(Interface& object, HRESULT (Interface::*operation)(BSTR*))
{
    CComBSTR text;
    const HRESULT result = (object.*operation)(text.Receive());
    return AnsiTextOf(result, text);
}
