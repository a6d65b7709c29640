// A headless Chromium of its own for one test or benchmark, in a data folder of its own, which goes with the object.
#pragma once

#include "platform/Types.h"
#include "platform/testing/BrowserProcess.h"

#include <string>

class RealBrowser
{
public:
    // Starts it with one page open. Throws std::runtime_error if there is no Chromium or it does not come up in 30 s.
    explicit RealBrowser(const std::string& url = "about:blank");

    // Any of the two names the browser in VANTROY_BROWSER.
    const std::string& DataFolder() const
    {
        return m_process.Folder();
    }
    std::string Endpoint() const; // "http://127.0.0.1:PORT"

    // Opens a page in a new tab in front of the others; gives its target id. Throws if the browser refuses.
    std::string OpenPage(const std::string& url);
    void ClosePage(const std::string& target);
    // Ends it as a crash would, and waits for its end. The data folder stays.
    void Kill()
    {
        m_process.Kill();
    }
    // Starts it again on the same data folder.
    void Start(const std::string& url = "about:blank");

private:
    BrowserProcess m_process;
    UINT m_port = 0;
};
