// The list of targets names pages in no order that a user knows. Targets of kind "tab" carry the place in the strip:
//
//   {"targetId": "79F7…", "type": "page", "title": "A", "url": "…"}
//   {"targetId": "5294…", "type": "tab", "title": "A", "url": "…", "embedderData": {"tabStripIndex": 0}}
//
// Which page a tab shows could be learned by attaching to the tab, but that wakes a sleeping one. Title and address of
// one list are the same for both, and pages that have both in common may change places unseen.
#include "platform/browser/devtools/TabStrip_p.h"

#include <QJsonArray>

#include <algorithm>
#include <utility>

namespace browsing::devtools
{
namespace
{

struct Target
{
    QString id;
    QString url;
    QString title;
    int window = 0; // of a tab; numbers rise in the order of opening
    int place = 0;
};

using Targets = std::vector<Target>;

// The browser's own tools are no pages of the user, and a page that is not on show yet has a subtype ("prerender").
bool IsOfUser(const QJsonObject& target)
{
    return !target.value("url").toString().startsWith("devtools://") && target.value("subtype").toString().isEmpty();
}

HRESULT GetTargets(Connection& browser, Deadline deadline, Targets& tabs, Targets& pages)
{
    const QJsonArray filter{QJsonObject{{"type", "tab"}}, QJsonObject{{"type", "page"}}};
    const Reply reply = browser.Call({"Target.getTargets", {{"filter", filter}}, {}}, deadline);
    for (const QJsonValue& value : reply.value.value("targetInfos").toArray())
    {
        const QJsonObject target = value.toObject();
        if (!IsOfUser(target))
            continue;
        const bool isTab = target.value("type") == "tab";
        if (isTab || target.value("type") == "page")
            (isTab ? tabs : pages)
                .push_back({target.value("targetId").toString(), target.value("url").toString(),
                            target.value("title").toString(), 0,
                            target.value("embedderData").toObject().value("tabStripIndex").toInt()});
    }
    return reply.result;
}

// A browser that goes away fails the whole look; what one target refuses or leaves open concerns that target alone.
bool EndsLook(HRESULT result)
{
    return FAILED(result) && result != E_FAIL && result != RPC_E_TIMEOUT;
}

HRESULT SortTabs(Connection& browser, Deadline deadline, Targets& tabs)
{
    std::vector<std::shared_ptr<PendingReply>> pending;
    for (const Target& tab : tabs)
        pending.push_back(browser.Send({"Browser.getWindowForTarget", {{"targetId", tab.id}}, {}}));
    for (std::size_t i = 0; i < tabs.size(); ++i)
    {
        const Reply reply = pending[i]->Take(deadline);
        if (EndsLook(reply.result))
            return reply.result;
        tabs[i].window = reply.value.value("windowId").toInt();
    }
    std::ranges::stable_sort(tabs, {}, [](const Target& tab) { return std::pair(tab.window, tab.place); });
    return S_OK;
}

// The pages in the order of their tabs.
void SortPages(const Targets& tabs, Targets& pages)
{
    auto sorted = pages.begin();
    for (const Target& tab : tabs)
    {
        const auto page = std::find_if(sorted, pages.end(), [&](const Target& candidate) {
            return candidate.url == tab.url && candidate.title == tab.title;
        });
        if (page != pages.end())
            std::rotate(sorted++, page, page + 1);
    }
}

const Attached* FindTarget(const std::vector<Attached>& sessions, const QString& target)
{
    const auto found = std::ranges::find(sessions, target, &Attached::target);
    return found != sessions.end() ? &*found : nullptr;
}

HRESULT AttachPages(Connection& browser, Deadline deadline, const Targets& pages)
{
    const std::vector<Attached> sessions = browser.Sessions();
    std::vector<std::shared_ptr<PendingReply>> pending;
    for (const Target& page : pages)
    {
        if (FindTarget(sessions, page.id) == nullptr)
            pending.push_back(browser.Send({"Target.attachToTarget", {{"targetId", page.id}, {"flatten", true}}, {}}));
    }
    for (const auto& one : pending)
    {
        const HRESULT result = one->Take(deadline).result;
        if (EndsLook(result))
            return result;
    }
    return S_OK;
}

} // namespace

HRESULT ListPages(Connection& browser, Deadline deadline, std::vector<Attached>& pages)
{
    Targets tabs;
    Targets targets;
    HRESULT result = GetTargets(browser, deadline, tabs, targets);
    if (SUCCEEDED(result))
        result = SortTabs(browser, deadline, tabs);
    if (SUCCEEDED(result))
        result = AttachPages(browser, deadline, targets);
    if (FAILED(result))
        return result;
    SortPages(tabs, targets);
    const std::vector<Attached> sessions = browser.Sessions();
    for (const Target& target : targets)
    {
        if (const Attached* const page = FindTarget(sessions, target.id))
            pages.push_back(*page);
    }
    return S_OK;
}

} // namespace browsing::devtools
