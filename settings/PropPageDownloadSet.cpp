#include "settings/PropPageDownloadSet.h"

#include "base/ErrorMessage.h"
#include "base/TextFile.h"
#include "persist/DownloadSetting.h"
#include "resources/ResourceIds.h"
#include "settings/ResolutionListDlg.h"

#include "platform/com/ComPtr.h"
#include "platform/files/FileCalls.h"
#include "platform/files/FileFind.h"
#include "platform/files/Path.h"
#include "platform/shell/FolderBrowser.h"
#include "platform/system/LastError.h"
#include "platform/window/DataExchange.h"
#include "platform/window/Resource.h"

#include <algorithm>

namespace
{

constexpr int kFolderCharacters = 255;
constexpr std::size_t kLongestPath = 4096;
constexpr std::size_t kRootLength = 4; // texts up to it name no folder that could be made

// What the folder browser opens at, for its callback.
char g_browsedFolder[520];

int SelectFolder(HWND browser, UINT message, LPARAM, LPARAM)
{
    if (message == BFFM_INITIALIZED)
        SendMessageA(browser, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(g_browsedFolder));
    return 0;
}

bool NamesADrive(const std::string& folder)
{
    return folder.size() <= kRootLength || folder.ends_with(':') || folder.ends_with(std::string(":") + kPathSeparator);
}

int PresetBox(std::size_t preset)
{
    return IDC_PRESET + static_cast<int>(preset);
}

// The path of the folder that the user chooses; empty if none is.
std::string BrowseForFolder(HWND owner, const std::string& folder)
{
    folder.copy(g_browsedFolder, sizeof g_browsedFolder - 1);
    g_browsedFolder[std::min(folder.size(), sizeof g_browsedFolder - 1)] = '\0';
    BROWSEINFOA info;
    info.hwndOwner = owner;
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    info.lpfn = &SelectFolder;
    ITEMIDLIST* item = SHBrowseForFolderA(&info);
    if (!item)
        return {};
    char path[kLongestPath] = {};
    SHGetPathFromIDListEx(item, path, sizeof path, 0);
    CComPtr<IMalloc> allocator;
    if (SHGetMalloc(allocator.Receive()) == S_OK)
        allocator->Free(item);
    return path;
}

} // namespace

CPropPageDownloadSet::CPropPageDownloadSet() : CPropertyPage(IDD_DOWNLOAD_SET)
{}

void CPropPageDownloadSet::SetRecord(CDownloadSetting* setting)
{
    if (setting)
        m_pSetting = setting;
}

const MessageMap& CPropPageDownloadSet::GetMessageMap() const
{
    static const MessageMap map{&CPropertyPage::StaticMessageMap(),
                                {
                                    OnControl(EN_CHANGE, IDC_SAVE_FOLDER, &CPropPageDownloadSet::OnModified),
                                    OnControl(EN_CHANGE, IDC_BIG_THAN_KB, &CPropPageDownloadSet::OnModified),
                                    OnControl(EN_CHANGE, IDC_SMALL_THAN_KB, &CPropPageDownloadSet::OnModified),
                                    OnCommand(IDC_BROWSE, &CPropPageDownloadSet::OnBrowse),
                                    OnCommand(IDC_LIMIT_SIZE, &CPropPageDownloadSet::OnLimitSize),
                                    OnCommand(IDC_BIG_THAN, &CPropPageDownloadSet::OnLowerBound),
                                    OnCommand(IDC_SMALL_THAN, &CPropPageDownloadSet::OnUpperBound),
                                    OnCommand(IDC_LIMIT_RESOLUTION, &CPropPageDownloadSet::OnLimitResolution),
                                    OnCommand(IDC_PRESET, &CPropPageDownloadSet::OnPreset<0>),
                                    OnCommand(IDC_PRESET + 1, &CPropPageDownloadSet::OnPreset<1>),
                                    OnCommand(IDC_PRESET + 2, &CPropPageDownloadSet::OnPreset<2>),
                                    OnCommand(IDC_PRESET + 3, &CPropPageDownloadSet::OnPreset<3>),
                                    OnCommand(IDC_PRESET + 4, &CPropPageDownloadSet::OnPreset<4>),
                                    OnCommand(IDC_MORE, &CPropPageDownloadSet::OnMore),
                                    OnCommand(IDC_IMAGES, &CPropPageDownloadSet::OnType<IDC_IMAGES>),
                                    OnCommand(IDC_MP3, &CPropPageDownloadSet::OnType<IDC_MP3>),
                                    OnCommand(IDC_FLASH, &CPropPageDownloadSet::OnType<IDC_FLASH>),
                                }};
    return map;
}

void CPropPageDownloadSet::DoDataExchange(CDataExchange* exchange)
{
    CPropertyPage::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_SAVE_FOLDER, m_folder);
    DDV_MaxChars(exchange, m_folder, kFolderCharacters);
    DDX_Check(exchange, IDC_LIMIT_SIZE, m_nLimitSize);
    DDX_Check(exchange, IDC_BIG_THAN, m_nBigThan);
    DDX_Text(exchange, IDC_BIG_THAN_KB, m_bigThanKb);
    DDX_Check(exchange, IDC_SMALL_THAN, m_nSmallThan);
    DDX_Text(exchange, IDC_SMALL_THAN_KB, m_smallThanKb);
    DDX_Check(exchange, IDC_LIMIT_RESOLUTION, m_nLimitResolution);
    DDX_Check(exchange, IDC_IMAGES, m_nImages);
    DDX_Check(exchange, IDC_MP3, m_nMp3);
    DDX_Check(exchange, IDC_FLASH, m_nFlash);
}

BOOL CPropPageDownloadSet::OnInitDialog()
{
    LoadRecord();
    CPropertyPage::OnInitDialog();
    ApplySizeRule();
    ApplyResolutionRule();
    const auto listed = m_pSetting->m_resolutions.Get();
    for (std::size_t preset = 0; preset < kPresetResolutions.size(); ++preset)
        Tick(PresetBox(preset), std::ranges::find(*listed, kPresetResolutions[preset]) != listed->end());
    return TRUE;
}

void CPropPageDownloadSet::LoadRecord()
{
    const CDownloadSetting& setting = *m_pSetting;
    m_folder = setting.GetSaveFolder();
    m_nLimitSize = setting.m_bLimitFileSize;
    m_nBigThan = setting.m_bBigThan;
    m_nSmallThan = setting.m_bSmallThan;
    m_bigThanKb = std::to_string(setting.m_nBigThanKb);
    m_smallThanKb = std::to_string(setting.m_nSmallThanKb);
    m_nLimitResolution = setting.m_bLimitResolution;
    m_nMp3 = setting.m_bMp3;
    m_nFlash = setting.m_bFlash;
    m_nImages = setting.m_bImages || (!m_nMp3 && !m_nFlash);
}

void CPropPageDownloadSet::StoreRecord()
{
    CDownloadSetting& setting = *m_pSetting;
    setting.m_bLimitFileSize = SizeLimit().IsInForce();
    setting.m_bBigThan = m_nBigThan;
    setting.m_bSmallThan = m_nSmallThan;
    setting.m_nBigThanKb = ToNumber(m_bigThanKb);
    setting.m_nSmallThanKb = ToNumber(m_smallThanKb);
    setting.m_bLimitResolution = m_nLimitResolution && !setting.m_resolutions.Get()->empty();
    setting.m_bImages = m_nImages;
    setting.m_bMp3 = m_nMp3;
    setting.m_bFlash = m_nFlash;
}

// The record takes the folder even if it is refused then.
BOOL CPropPageDownloadSet::OnApply()
{
    if (!UpdateData(TRUE))
        return FALSE;
    m_pSetting->m_szSaveFolder.Set(CDownloadSetting::SaveFolder(m_folder));
    if (!PrepareFolder())
        return FALSE;
    StoreRecord();
    m_pSetting->Save();
    return CPropertyPage::OnApply();
}

// False, with a message, if there can be no such folder.
bool CPropPageDownloadSet::PrepareFolder()
{
    CFileFind find;
    if (find.FindFile(m_folder))
    {
        find.FindNextFile();
        if (find.IsDirectory())
            return true;
        MessageBox(AfxLoadString(IDS_NO_DOWNLOAD_FOLDER));
        return false;
    }
    if (NamesADrive(m_folder) || CreateDirectoryA(m_folder.c_str(), nullptr))
        return true;
    ShowErrorMessage(GetLastError());
    return false;
}

void CPropPageDownloadSet::OnModified()
{
    SetModified();
}

void CPropPageDownloadSet::OnBrowse()
{
    if (!UpdateData(TRUE))
        return;
    const std::string folder = BrowseForFolder(m_hWnd, m_folder);
    if (folder.empty())
        return;
    m_folder = folder;
    SetModified();
    UpdateData(FALSE);
}

SizeLimitRule CPropPageDownloadSet::SizeLimit() const
{
    return {IsTicked(IDC_LIMIT_SIZE), IsTicked(IDC_BIG_THAN), IsTicked(IDC_SMALL_THAN)};
}

void CPropPageDownloadSet::OnLimitSize()
{
    SetModified();
    ApplySizeRule();
}

void CPropPageDownloadSet::ApplySizeRule()
{
    const SizeLimitRule rule = SizeLimit();
    Enable(IDC_BIG_THAN_KB, rule.IsLowerEnabled());
    Enable(IDC_SMALL_THAN_KB, rule.IsUpperEnabled());
    for (const int id : {IDC_BIG_THAN, IDC_SMALL_THAN, IDC_BIG_THAN_UNIT, IDC_SMALL_THAN_UNIT})
        Enable(id, rule.limit);
}

void CPropPageDownloadSet::OnLowerBound()
{
    SetModified();
    Enable(IDC_BIG_THAN_KB, IsTicked(IDC_BIG_THAN));
    FollowBounds();
}

void CPropPageDownloadSet::OnUpperBound()
{
    SetModified();
    Enable(IDC_SMALL_THAN_KB, IsTicked(IDC_SMALL_THAN));
    FollowBounds();
}

// The boxes of the bounds stay enabled, so that a tick brings the limit back.
void CPropPageDownloadSet::FollowBounds()
{
    SizeLimitRule rule = SizeLimit();
    rule.FollowBounds();
    Tick(IDC_LIMIT_SIZE, rule.limit);
}

void CPropPageDownloadSet::OnLimitResolution()
{
    SetModified();
    ApplyResolutionRule();
}

void CPropPageDownloadSet::ApplyResolutionRule()
{
    const bool limit = IsTicked(IDC_LIMIT_RESOLUTION);
    for (std::size_t preset = 0; preset < kPresetResolutions.size(); ++preset)
        Enable(PresetBox(preset), limit);
    Enable(IDC_MORE, limit);
}

template <std::size_t Preset>
void CPropPageDownloadSet::OnPreset()
{
    ClickPreset(Preset);
}

void CPropPageDownloadSet::ClickPreset(std::size_t preset)
{
    SetModified();
    CResolutionVector list = *m_pSetting->m_resolutions.Get();
    SetListed(list, kPresetResolutions[preset], IsTicked(PresetBox(preset)));
    m_pSetting->m_resolutions.Set(std::move(list));
}

void CPropPageDownloadSet::OnMore()
{
    CResolutionListDlg dialog(this);
    dialog.SetList(*m_pSetting->m_resolutions.Get());
    if (dialog.DoModal() != IDOK)
        return;
    std::array<bool, kPresetResolutions.size()> ticked;
    for (std::size_t preset = 0; preset < ticked.size(); ++preset)
        ticked[preset] = IsTicked(PresetBox(preset));
    m_pSetting->m_resolutions.Set(JoinResolutions(ticked, dialog.GetList()));
    SetModified();
}

template <int Box>
void CPropPageDownloadSet::OnType()
{
    ClickType(Box);
}

void CPropPageDownloadSet::ClickType(int box)
{
    if (IsTicked(IDC_IMAGES) || IsTicked(IDC_MP3) || IsTicked(IDC_FLASH))
        SetModified();
    else
        Tick(box, true);
}

bool CPropPageDownloadSet::IsTicked(int id) const
{
    return SendMessageA(GetDlgItem(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void CPropPageDownloadSet::Tick(int id, bool ticked) const
{
    SendMessageA(GetDlgItem(id), BM_SETCHECK, ticked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void CPropPageDownloadSet::Enable(int id, bool enabled) const
{
    ::EnableWindow(GetDlgItem(id), enabled);
}
