// What goes into a URL and a request line.
#pragma once

#include <string>
#include <string_view>

// A name, an IPv4 address or an IPv6 address in brackets: nothing that would end the host's place in a URL.
bool IsHostName(std::string_view host);

// The request's path by the rule of HttpOpenRequestA (Internet.h).
std::string RequestPath(std::string_view path);
