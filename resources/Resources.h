// The program's dialogs, menus, texts and pictures.
#pragma once

#include "platform/window/Resource.h"

const ResourceTable& VantroyResources();

// The parts of the table, each in a source of its own.
std::span<const DialogTemplate> DialogResources();
std::span<const MenuTemplate> MenuResources();
std::span<const TextEntry> TextResources();
std::span<const PictureEntry> PictureResources();
std::span<const ToolBarTemplate> ToolBarResources();
std::span<const ImageStrip> ImageStripResources();
std::string_view VersionResource();
std::string_view UsageResource();
