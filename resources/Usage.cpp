#include "resources/Resources.h"

std::string_view VersionResource()
{
    return VANTROY_VERSION; // the build's own
}

std::string_view UsageResource()
{
    return R"(Usage: vantroy [--all | --current]
       vantroy --browsers | --help | --version

Brings the pictures, MP3 music and Flash files of web pages into one folder.

  (nothing)      opens the main window, with the pages open in the browser
  --all          downloads all pages that are open in the browser, and ends
  --current      downloads the pages of the list cacheurl.xml, and ends
  --browsers     prints the browsers found, and what helps to reach each
  -h, --help     prints this text
  --version      prints the version

Without a display, --all and --current tell on the console what their window
would show: on a terminal in one line that is rewritten, else in one line for
each file. Messages go to standard error. No question waits for an answer: "No"
is taken, and "Yes" after Ctrl+C, which ends the run behind the file in hand. A
second Ctrl+C breaks that file off, too, and a third ends the program at once.

Exit status:
  0              the run reached its end
  1              the run could not start, or there was nothing to download
  2              wrong use: an unknown option, or a window without a display
  128 + N        the run was stopped by the signal with that number

Environment:
  VANTROY_DESKTOP    "console": as without a display, even if there is one
  VANTROY_HOME       the folder of settings, lists and downloads
  VANTROY_BROWSER    the browsers to use: addresses http://127.0.0.1:PORT or
                     ws://..., or data folders of browsers, with commas between
  VANTROY_HTTP_PORT  the port of every HTTP fetch instead of 80
  VANTROY_CODEPAGE   the code page of texts and file names: 65001, 936, 932,
                     949, 950 or 1252
  http_proxy, no_proxy  the proxy of HTTP fetches
)";
}
