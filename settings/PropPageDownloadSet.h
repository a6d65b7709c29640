// The first page of the settings sheet: where files go, and which of them are wanted. It edits the record of the window
// that opened the sheet; Apply writes config.xml. Ticks of resolutions reach the record at once, all else with Apply.
#pragma once

#include "settings/ResolutionChoice.h"
#include "settings/SizeLimitRule.h"

#include "platform/window/PropertySheet.h"

#include <array>
#include <string>

class CDownloadSetting;

class CPropPageDownloadSet : public CPropertyPage
{
public:
    CPropPageDownloadSet();

    // The record, which must outlive the page; to be called before the sheet opens. Null is ignored.
    void SetRecord(CDownloadSetting* setting);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    BOOL OnApply() override;
    const MessageMap& GetMessageMap() const override;

private:
    void LoadRecord();
    void StoreRecord();
    bool PrepareFolder();

    void OnModified();
    void OnBrowse();
    void OnLimitSize();
    void OnLowerBound();
    void OnUpperBound();
    void OnLimitResolution();
    template <std::size_t Preset>
    void OnPreset();
    template <int Box>
    void OnType();
    void OnMore();

    bool IsTicked(int id) const;
    void Tick(int id, bool ticked) const;
    void Enable(int id, bool enabled) const;
    SizeLimitRule SizeLimit() const;
    void ApplySizeRule();
    void FollowBounds();
    void ApplyResolutionRule();
    void ClickPreset(std::size_t preset);
    void ClickType(int box);

    CDownloadSetting* m_pSetting = nullptr;

    // What stands in the controls.
    std::string m_folder;
    int m_nLimitSize = 0;
    int m_nBigThan = 0;
    int m_nSmallThan = 0;
    std::string m_bigThanKb;
    std::string m_smallThanKb;
    int m_nLimitResolution = 0;
    int m_nImages = 0;
    int m_nMp3 = 0;
    int m_nFlash = 0;
};
