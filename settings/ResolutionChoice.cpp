#include "settings/ResolutionChoice.h"

#include "base/TextFile.h"

#include <algorithm>

namespace
{

std::string RowText(const std::string& width, const std::string& height)
{
    return width + " x " + height;
}

} // namespace

bool IsPreset(const CResolution& resolution)
{
    return std::ranges::find(kPresetResolutions, resolution) != kPresetResolutions.end();
}

void SetListed(CResolutionVector& list, const CResolution& resolution, bool listed)
{
    const auto found = std::ranges::find(list, resolution);
    if (listed && found == list.end())
        list.push_back(resolution);
    else if (!listed && found != list.end())
        list.erase(found);
}

CResolutionVector JoinResolutions(const std::array<bool, 5>& ticked, const CResolutionVector& edited)
{
    CResolutionVector list;
    for (std::size_t i = 0; i < ticked.size(); ++i)
        SetListed(list, kPresetResolutions[i], ticked[i]);
    for (const CResolution& resolution : edited)
        SetListed(list, resolution, true);
    return list;
}

void CResolutionRows::SetList(const CResolutionVector& list)
{
    m_items.clear();
    for (const CResolution& resolution : list)
    {
        const std::string text = RowText(std::to_string(resolution.m_nWidth), std::to_string(resolution.m_nHeight));
        m_items.push_back({resolution, IsPreset(resolution) ? std::string() : text});
    }
}

CResolutionVector CResolutionRows::GetList() const
{
    CResolutionVector list;
    for (const Item& item : m_items)
        list.push_back(item.resolution);
    return list;
}

std::vector<std::string> CResolutionRows::GetRows() const
{
    std::vector<std::string> rows;
    for (const Item& item : m_items)
    {
        if (!item.text.empty())
            rows.push_back(item.text);
    }
    return rows;
}

CResolutionRows::Entry CResolutionRows::Add(const std::string& width, const std::string& height)
{
    if (width.empty() || height.empty())
        return Entry::Missing;
    const CResolution resolution{ToNumber(width), ToNumber(height)};
    const bool known = std::ranges::find(m_items, resolution, &Item::resolution) != m_items.end();
    if (resolution.m_nWidth < 1 || resolution.m_nHeight < 1 || known)
        return Entry::Refused;
    m_items.push_back({resolution, RowText(width, height)});
    return Entry::Added;
}

void CResolutionRows::Remove(const std::vector<int>& rows)
{
    int row = -1;
    std::erase_if(m_items,
                  [&](const Item& item) { return !item.text.empty() && std::ranges::binary_search(rows, ++row); });
}
