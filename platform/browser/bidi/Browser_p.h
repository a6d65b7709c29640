// A browser that speaks WebDriver BiDi.
#pragma once

#include "platform/browser/BrowserStates.h"
#include "platform/browser/Browser_p.h"
#include "platform/browser/Page_p.h"
#include "platform/browser/bidi/Session_p.h"

#include <map>
#include <memory>
#include <vector>

namespace browsing::bidi
{

class Browser : public browsing::Browser
{
public:
    Browser(Place place, std::shared_ptr<IoThread> io);

    // The browser's state and its pages, with short limits.
    void Inquire(BrowserReport& report);

protected:
    HRESULT Connect() override;
    HRESULT LookAtPages(std::vector<SeenPage>& pages) override;

private:
    HRESULT ReachSession(Deadline deadline);
    void AskForLook(const QString& context);
    SeenPage TakeLook(const QString& context);

    const std::shared_ptr<IoThread> m_io;
    std::shared_ptr<Session> m_session;
    std::map<QString, Page> m_pages; // by context
};

} // namespace browsing::bidi
