// A theme library to be found as "uxtheme.dll", as long as it lives; one at a time. It draws nothing and tells what it
// was asked for. User-interface thread.
#pragma once

#include "platform/Types.h"

#include <string>
#include <vector>

class ThemeLibrary
{
public:
    ThemeLibrary();
    ~ThemeLibrary();
    ThemeLibrary(const ThemeLibrary&) = delete;
    ThemeLibrary& operator=(const ThemeLibrary&) = delete;

    struct Drawing
    {
        int part = 0;
        int state = 0;
        RECT bounds;
    };

    bool m_bActive = true;           // what IsThemeActive tells
    LONG m_nBorder = 3;              // of every part, in device-independent pixels
    std::wstring m_classes = L"Tab"; // the class that has a theme
    int m_nOpen = 0;                 // themes that were not closed
    std::vector<Drawing> m_drawings;
};
