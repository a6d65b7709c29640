// The cookies of a browser, as its protocol tells them.
#pragma once

#include "platform/browser/Connection_p.h"
#include "platform/internet/Cookies.h"

#include <vector>

namespace browsing::devtools
{

// Asks for the cookies of the user's own profile. Those of its private windows are others.
Command AskForCookies();
// What goes with an address that a user follows from another page, whatever this page is.
std::vector<Cookie> CookiesOf(const QJsonObject& reply);

} // namespace browsing::devtools
