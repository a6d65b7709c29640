// The button as a browser of the Chromium family takes it: an extension with a button, and a native messaging host,
// which is this program. scripts/vantroy-browser knows the folders and the number, too.
#pragma once

#include "platform/browser/toolbar/ButtonKey_p.h"

#include <filesystem>

namespace toolbar
{

// The first 128 bits of the SHA-256 of the public key in its manifest, with a to p for digits.
inline constexpr const char* kExtensionId = "mcdafhigjjcocleamdailkllpehldafh";

// Where vantroy-browser has its browser, and where it looks for the extension.
std::filesystem::path BrowserFolder();
std::filesystem::path ExtensionFolder();

// Whether files are there that call this executable.
bool HasFiles();
// False if they are there as they should be, or cannot be written.
bool WriteFiles(const Button& button);
void RemoveFiles();

} // namespace toolbar
