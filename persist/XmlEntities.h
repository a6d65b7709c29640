// The characters of an XML text that stand written as codes, "&lt;" for "<".
#pragma once

#include <string>
#include <string_view>

// A value as it is written into a document: "<", "&" and ">" become codes, in an attribute also both quotes.
std::string EncodeText(std::string_view value, bool bAttribute);
// The value that stands written so. All five codes are read everywhere; any other "&" stands for itself, so numbered
// codes come back as they are. Never longer than what is written.
std::string DecodeText(std::string_view written);
