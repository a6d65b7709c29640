// The gallery's own dialog, menu and pictures; the texts are the product's.
#pragma once

#include "platform/window/Resource.h"

inline constexpr int IDD_GALLERY = 100;
inline constexpr int IDR_GALLERY_MENU = 200;
inline constexpr int IDI_PAPER = 300;

inline constexpr int IDC_PLAIN = 1000;
inline constexpr int IDC_DEFAULT = 1001;
inline constexpr int IDC_DISABLED = 1002;
inline constexpr int IDC_COLOURED = 1003;
inline constexpr int IDC_SOUNDS = 1004;
inline constexpr int IDC_WEB = 1005;
inline constexpr int IDC_TICK = 1006;
inline constexpr int IDC_TICKED = 1007;
inline constexpr int IDC_TICKED_DISABLED = 1008;
inline constexpr int IDC_MENU = 1009;
inline constexpr int IDC_OWN = 1010;
inline constexpr int IDC_LINK = 1011;
inline constexpr int IDC_SAID = 1012;

inline constexpr UINT ID_OPEN = 2000;
inline constexpr UINT ID_SAVE = 2001;
inline constexpr UINT ID_TOOLS = 2002;
inline constexpr UINT ID_FISH = 2003;
inline constexpr UINT ID_GREYED = 2004;
inline constexpr UINT ID_LARGE = 2005;
inline constexpr UINT ID_SMALL = 2006;

const ResourceTable& GalleryResources();
