// A cookie source in memory, the program's while it lives. It hands out all it has, whatever host is asked for: what
// goes where is not its business.
#pragma once

#include "platform/internet/Cookies.h"

struct MemoryCookies
{
    struct Source : ICookieSource
    {
        std::vector<Cookie> Find(const std::string& host, std::string& browser) override
        {
            asked.push_back(browser + ">" + host);
            browser = "first";
            return cookies;
        }

        std::vector<Cookie> cookies;
        std::vector<std::string> asked; // "browser>host"
    };

    explicit MemoryCookies(std::vector<Cookie> cookies = {})
    {
        source->cookies = std::move(cookies);
        SetCookieSource(source);
    }
    ~MemoryCookies()
    {
        SetCookieSource(nullptr);
    }
    MemoryCookies(const MemoryCookies&) = delete;
    MemoryCookies& operator=(const MemoryCookies&) = delete;

    const std::shared_ptr<Source> source = std::make_shared<Source>();
};
