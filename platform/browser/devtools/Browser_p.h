// A browser that speaks the DevTools protocol.
#pragma once

#include "platform/browser/Browser_p.h"
#include "platform/browser/Page_p.h"
#include "platform/browser/devtools/Connection_p.h"

#include <map>
#include <memory>
#include <vector>

namespace browsing::devtools
{

class Browser : public browsing::Browser
{
public:
    Browser(Place place, std::shared_ptr<IoThread> io);

    Command CookieRequest() const override;
    std::vector<Cookie> CookiesOf(const QJsonObject& reply) const override;

protected:
    HRESULT Connect() override;
    HRESULT LookAtPages(std::vector<SeenPage>& pages) override;
    void ReadLoaded(std::vector<LoadedResource>& resources) override;

private:
    struct AttachedPage
    {
        Page page;
        bool isEnabled = false; // Page.enable was sent
    };

    void Forget(const std::vector<Attached>& pages);
    void AskForLook(const Attached& attached);
    SeenPage TakeLook(const Attached& attached);

    const std::shared_ptr<IoThread> m_io;
    std::shared_ptr<Connection> m_connection;
    std::map<QString, AttachedPage> m_pages; // by session
    Clock::time_point m_askUserAfter;        // a user who has refused is not asked again at once
};

} // namespace browsing::devtools
