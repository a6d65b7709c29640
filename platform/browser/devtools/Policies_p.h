// What the machine's administrator allows the browsers.
#pragma once

#include <string>

namespace browsing::devtools
{

// Whether a policy of the machine switches the debugging port of a browser off ("Chromium", "Chrome", "Brave", "Edge",
// "Vivaldi"). VANTROY_POLICY_ROOT stands for "/" in tests.
bool IsDebuggingForbidden(const std::string& browser);

} // namespace browsing::devtools
