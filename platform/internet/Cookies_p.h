// Cookies on their way to the cookie engine.
#pragma once

#include "platform/internet/Cookies.h"

// Null if there are no cookies.
std::shared_ptr<ICookieSource> CookieSource();

// The cookie's line for the engine, in the format of cookie files; empty for one that does not fit into it or that no
// browser keeps: nameless, too long, with controls or separators inside.
std::string CookieLine(const Cookie& cookie);
