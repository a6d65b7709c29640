// The browsers of this machine, reached through their debugging protocol.
#pragma once

// Enters the window collection over the running browsers as CLSID_ShellWindows, their loaded copies as the URL
// cache (internet/UrlCache.h), and their cookies as those of the internet client (internet/Cookies.h). Connections are
// made at the first use and kept until the process ends. VANTROY_BROWSER names the browsers to use, see
// platform/README.md. Called once, when the desktop has started: the connections live on a thread with an event loop.
void RegisterBrowsers();

// Ends all connections and their threads. Calls that wait fail at once. Called once, before the desktop ends.
void CloseBrowsers();
