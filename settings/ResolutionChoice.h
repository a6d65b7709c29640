// The image sizes that are not wanted, as the settings page and its list edit them: pure.
#pragma once

#include "persist/DownloadSetting.h"

#include <array>
#include <string>
#include <vector>

using CResolutionVector = std::vector<CResolution>;

// The sizes that have a check box of their own, in the order of the boxes.
inline constexpr std::array<CResolution, 5> kPresetResolutions{
    {{640, 480}, {800, 600}, {1024, 768}, {1280, 768}, {1600, 1200}}};

bool IsPreset(const CResolution& resolution);

// Has the list hold the size, at its tail if it is new, or not.
void SetListed(CResolutionVector& list, const CResolution& resolution, bool listed);

// The list behind an edit of it: the ticked presets in their order, then the others of `edited` in theirs.
CResolutionVector JoinResolutions(const std::array<bool, 5>& ticked, const CResolutionVector& edited);

// A list that is being edited: its rows are the sizes that are no presets, each with its text; presets that it holds
// stay out of sight. A preset that the user enters has a row.
class CResolutionRows
{
public:
    enum class Entry
    {
        Added,   // as the last row
        Missing, // one of the two texts is empty
        Refused, // a number below 1, or a size that the list holds already
    };

    void SetList(const CResolutionVector& list);
    CResolutionVector GetList() const;
    std::vector<std::string> GetRows() const;

    Entry Add(const std::string& width, const std::string& height);
    // The rows at these places, which rise.
    void Remove(const std::vector<int>& rows);

private:
    struct Item
    {
        CResolution resolution;
        std::string text; // empty for one without a row
    };

    std::vector<Item> m_items;
};
