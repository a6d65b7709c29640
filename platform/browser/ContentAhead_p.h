// Contents that are asked for before they are wanted, so that the browser reads them while the program stores another.
#pragma once

#include "platform/browser/Browser_p.h"

#include <deque>
#include <functional>
#include <map>

namespace browsing
{

// One thread at a time.
class ContentAhead
{
public:
    // The resource that holds the content of an address, null if there is none or its content is not needed.
    using Search = std::function<const LoadedResource*(const QString& url)>;

    // The addresses that will be wanted, in their order. Forgets those of before and what was asked for.
    void Expect(std::deque<QString> urls);
    // Asks for the next ones, as many as may be on their way at a time. Does not wait.
    void Ask(const Search& search);
    // The bytes of the resource, asked for now if they were not before; empty if they are not to be had. Waits.
    QByteArray Take(const LoadedResource& resource);

private:
    struct Asked
    {
        QString loader;
        qint64 size = 0;
        AskedContent content;
    };

    // False while there is no room for it.
    bool AskFor(const LoadedResource& resource);

    std::deque<QString> m_expected; // not asked for yet
    std::map<QString, Asked> m_asked;
};

} // namespace browsing
