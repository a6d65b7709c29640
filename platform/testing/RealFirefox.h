// A headless Firefox of its own for one test, in a profile of its own, which goes with the object.
#pragma once

#include "platform/testing/BrowserProcess.h"

class RealFirefox
{
public:
    // Starts it with a tab for each address. Throws std::runtime_error if there is no Firefox or it does not come up.
    explicit RealFirefox(const std::vector<std::string>& urls);

    // Any of the two names the browser in VANTROY_BROWSER.
    std::string Profile() const
    {
        return m_process.Folder() + "/profile";
    }
    std::string Endpoint() const; // "ws://127.0.0.1:PORT/session"

private:
    int Port() const; // 0 until the browser tells it

    BrowserProcess m_process;
};
