// Where the program keeps its files, and how a path is put together.
#pragma once

#include <string>
#include <string_view>

// The folder of the running executable with the separator at its end: config.xml, History and the rest hang on it.
std::string GetInstallFolder();

// `folder`, the separator if the text is not empty and does not end in it, and `name` as it stands.
std::string PathInFolder(std::string_view folder, std::string_view name);

// What stands behind the last "/" of an address or of its path; all of it if it holds none. Nothing is unescaped.
std::string ItemNameOf(std::string_view url);
