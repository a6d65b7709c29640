// The list of targets names pages in no order that a user knows. Targets of kind "tab" carry the place in the strip;
// which page a tab shows is told by attaching to the tab and letting it attach to its page:
//
//   Target.getTargets → {"targetId": "5294…", "type": "tab", "url": "…", "embedderData": {"tabStripIndex": 0}}
//   Target.attachToTarget, Target.setAutoAttach → Target.attachedToTarget {"sessionId": "28F3…", "targetInfo": {…}}
//                                                 in the session of the tab, before the reply
#include "platform/browser/devtools/TabStrip_p.h"

#include <QJsonArray>

#include <algorithm>
#include <utility>

namespace devtools
{
namespace
{

struct Tab
{
    QString target;
    int window = 0; // numbers rise in the order of opening
    int place = 0;
    QString session;
};

struct Targets
{
    std::vector<Tab> tabs;
    std::vector<QString> pages;
};

// The browser's own tools are no pages of the user, and a page that is not on show yet has a subtype.
bool IsOfUser(const QJsonObject& target)
{
    return !target.value("url").toString().startsWith("devtools://") && target.value("subtype").toString().isEmpty();
}

HRESULT GetTargets(Connection& browser, Deadline deadline, Targets& targets)
{
    const QJsonArray filter{QJsonObject{{"type", "tab"}}, QJsonObject{{"type", "page"}}};
    const Reply reply = browser.Call({"Target.getTargets", {{"filter", filter}}, {}}, deadline);
    for (const QJsonValue& value : reply.value.value("targetInfos").toArray())
    {
        const QJsonObject target = value.toObject();
        const QString id = target.value("targetId").toString();
        if (!IsOfUser(target))
            continue;
        if (target.value("type") == "tab")
            targets.tabs.push_back({id, 0, target.value("embedderData").toObject().value("tabStripIndex").toInt(), {}});
        else if (target.value("type") == "page")
            targets.pages.push_back(id);
    }
    return reply.result;
}

// A browser that goes away fails the whole look; what one target refuses concerns that target alone.
HRESULT WaitForAll(const std::vector<std::shared_ptr<PendingReply>>& pending, Deadline deadline)
{
    for (const auto& one : pending)
    {
        const HRESULT result = one->Take(deadline).result;
        if (FAILED(result) && result != E_FAIL)
            return result;
    }
    return S_OK;
}

const Attached* FindTarget(const std::vector<Attached>& sessions, const QString& target)
{
    const auto found = std::ranges::find(sessions, target, &Attached::target);
    return found != sessions.end() ? &*found : nullptr;
}

const Attached* FindPageOf(const std::vector<Attached>& sessions, const QString& tab)
{
    const auto shows = [&](const Attached& page) {
        return page.parent == tab && page.type == "page" && page.subtype.isEmpty();
    };
    const auto found = tab.isEmpty() ? sessions.end() : std::ranges::find_if(sessions, shows);
    return found != sessions.end() ? &*found : nullptr;
}

Command Attach(const QString& target)
{
    return {"Target.attachToTarget", {{"targetId", target}, {"flatten", true}}, {}};
}

Command AttachToPage(const QString& tab)
{
    return {"Target.setAutoAttach", {{"autoAttach", true}, {"waitForDebuggerOnStart", false}, {"flatten", true}}, tab};
}

HRESULT AttachTabs(Connection& browser, const std::vector<Tab>& tabs, Deadline deadline)
{
    const std::vector<Attached> sessions = browser.Sessions();
    std::vector<std::shared_ptr<PendingReply>> pending;
    for (const Tab& tab : tabs)
    {
        const Attached* const attached = FindTarget(sessions, tab.target);
        if (attached == nullptr)
            pending.push_back(browser.Send(Attach(tab.target), [](const QJsonObject& reply) {
                return AttachToPage(reply.value("sessionId").toString());
            }));
        else if (FindPageOf(sessions, attached->session) == nullptr)
            pending.push_back(browser.Send(AttachToPage(attached->session)));
    }
    return WaitForAll(pending, deadline);
}

HRESULT FindWindows(Connection& browser, std::vector<Tab>& tabs, Deadline deadline)
{
    std::vector<std::shared_ptr<PendingReply>> pending;
    for (const Tab& tab : tabs)
        pending.push_back(browser.Send({"Browser.getWindowForTarget", {{"targetId", tab.target}}, {}}));
    for (std::size_t i = 0; i < tabs.size(); ++i)
    {
        const Reply reply = pending[i]->Take(deadline);
        if (FAILED(reply.result) && reply.result != E_FAIL)
            return reply.result;
        tabs[i].window = reply.value.value("windowId").toInt();
    }
    std::ranges::stable_sort(tabs, {}, [](const Tab& tab) { return std::pair(tab.window, tab.place); });
    return S_OK;
}

HRESULT AttachPages(Connection& browser, const std::vector<QString>& targets, Deadline deadline)
{
    const std::vector<Attached> sessions = browser.Sessions();
    std::vector<std::shared_ptr<PendingReply>> pending;
    for (const QString& target : targets)
    {
        if (FindTarget(sessions, target) == nullptr)
            pending.push_back(browser.Send(Attach(target)));
    }
    return WaitForAll(pending, deadline);
}

void Collect(const std::vector<Attached>& sessions, const Targets& targets, std::vector<Attached>& pages)
{
    for (const Tab& tab : targets.tabs)
    {
        const Attached* const attached = FindTarget(sessions, tab.target);
        const Attached* const page = attached != nullptr ? FindPageOf(sessions, attached->session) : nullptr;
        pages.push_back(page != nullptr ? *page : Attached());
    }
    for (const QString& target : targets.pages)
    {
        const Attached* const page = FindTarget(sessions, target);
        if (page != nullptr && FindTarget(pages, target) == nullptr)
            pages.push_back(*page);
    }
}

} // namespace

HRESULT ListPages(Connection& browser, Deadline deadline, std::vector<Attached>& pages)
{
    Targets targets;
    HRESULT result = GetTargets(browser, deadline, targets);
    if (SUCCEEDED(result))
        result = AttachTabs(browser, targets.tabs, deadline);
    if (SUCCEEDED(result))
        result = FindWindows(browser, targets.tabs, deadline);
    if (SUCCEEDED(result))
        result = AttachPages(browser, targets.pages, deadline);
    if (SUCCEEDED(result))
        Collect(browser.Sessions(), targets, pages);
    return result;
}

} // namespace devtools
