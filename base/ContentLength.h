// The length that an HTTP response promises. Any thread.
#pragma once

#include "platform/internet/Internet.h"

#include <optional>

// Bytes, as the header tells them: 0 for a text without digits, negative where it says so; none without the header.
// `request` was sent.
std::optional<long long> ContentLengthOf(HINTERNET request);
