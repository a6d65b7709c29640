#include "download/SizeFilter.h"

#include "persist/DownloadSetting.h"

CSizeLimit CSizeLimit::Of(const CDownloadSetting& setting)
{
    return {setting.m_bLimitFileSize != 0, setting.m_bBigThan != 0, setting.m_bSmallThan != 0,
            static_cast<std::uint32_t>(setting.m_nBigThanKb), static_cast<std::uint32_t>(setting.m_nSmallThanKb)};
}

bool CSizeLimit::IsFiltered(DWORD size) const
{
    if (!m_bOn)
        return false;
    const std::uint32_t big = m_nBigThanKb << 10;
    const std::uint32_t small = m_nSmallThanKb << 10;
    if (m_bBigThan && !m_bSmallThan && size < big)
        return true;
    if (m_bSmallThan && !m_bBigThan && size > small)
        return true;
    if (m_nBigThanKb > m_nSmallThanKb)
        return small <= size && size <= big;
    return size >= small || size <= big;
}
