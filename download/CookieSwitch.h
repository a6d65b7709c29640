// The switch of the cookies: the value "SendCookies" of the product's key in HKEY_CURRENT_USER. The text "0" keeps runs
// from sending the browser's cookies; without it, or with any other, they do. No dialog shows it.
#pragma once

bool MaySendCookies();
