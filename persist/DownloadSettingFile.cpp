// The settings on disk.

#include "persist/DownloadSetting.h"

#include "base/ErrorMessage.h"
#include "base/Paths.h"
#include "base/TextFile.h"
#include "persist/XmlDoc.h"

#include "platform/files/MirrorFile.h"
#include "platform/system/LastError.h"

#include <new>

namespace
{

constexpr std::int32_t kImagesBit = 1;
constexpr std::int32_t kMp3Bit = 2;
constexpr std::int32_t kFlashBit = 4;

std::string ConfigPath()
{
    return PathInFolder(GetInstallFolder(), "config.xml");
}

std::string Decimal(std::int32_t number)
{
    return std::to_string(number);
}

void ReadBound(CXmlDoc& document, const char* name, CFlag& on, CFlag& kb)
{
    if (!document.FindNextChild(name))
        return;
    on = ToNumber(document.GetChildText());
    kb = ToNumber(document.GetChildAttribute("FILESIZE"));
}

void WriteBound(CXmlDoc& document, const char* name, std::int32_t on, std::int32_t kb)
{
    document.AppendChild(name, Decimal(on).c_str());
    document.AddChildAttribute("FILESIZE", Decimal(kb).c_str());
}

bool WriteWhole(const std::string& path, const std::string& text)
{
    CMirrorFile file;
    return file.Open(path) && file.Write(text.data(), text.size()) && file.Flush() && file.Close();
}

} // namespace

bool CDownloadSetting::Load()
{
    GlobalPtr<char> text;
    const ReadResult result = ReadTextFile(ConfigPath(), text);
    if (result != ReadResult::Read)
        return result == ReadResult::OutOfMemory;
    try
    {
        CXmlDoc document;
        document.SetText(text.get());
        Read(document);
    }
    catch (const std::bad_alloc&)
    {}
    return true;
}

void CDownloadSetting::Read(CXmlDoc& document)
{
    if (!document.FindNext("CONFIG"))
        return;
    if (document.FindNextChild("SAVEFOLDER"))
        m_szSaveFolder.Set(SaveFolder(document.GetChildText()));
    if (document.FindNextChild("LIMITFILESIZE"))
        ReadSizeLimit(document);
    if (document.FindNextChild("LIMITRESOLVING"))
        ReadResolutions(document);
    if (!document.FindNextChild("LIMITFILETYPE"))
        return;
    const std::int32_t types = ToNumber(document.GetChildText());
    m_bImages = (types & kImagesBit) != 0;
    m_bMp3 = (types & kMp3Bit) != 0;
    m_bFlash = (types & kFlashBit) != 0;
}

void CDownloadSetting::ReadSizeLimit(CXmlDoc& document)
{
    m_bLimitFileSize = 1;
    document.EnterChild();
    ReadBound(document, "BIGTHAN", m_bBigThan, m_nBigThanKb);
    ReadBound(document, "SMALLTHAN", m_bSmallThan, m_nSmallThanKb);
    document.LeaveElement();
}

void CDownloadSetting::ReadResolutions(CXmlDoc& document)
{
    m_bLimitResolution = 1;
    std::vector<CResolution> resolutions = *m_resolutions.Get();
    document.EnterChild();
    while (document.FindNextChild("RESOLVING_CAP"))
        resolutions.push_back(
            {ToNumber(document.GetChildAttribute("RESX")), ToNumber(document.GetChildAttribute("RESY"))});
    document.LeaveElement();
    m_resolutions.Set(std::move(resolutions));
}

bool CDownloadSetting::Save() const
{
    CXmlDoc document;
    document.AppendElement("CONFIG");
    document.AppendChild("SAVEFOLDER", GetSaveFolder().c_str());
    if (m_bLimitFileSize != 0)
        WriteSizeLimit(document);
    if (m_bLimitResolution != 0)
        WriteResolutions(document);
    const std::int32_t types =
        (m_bImages != 0 ? kImagesBit : 0) + (m_bMp3 != 0 ? kMp3Bit : 0) + (m_bFlash != 0 ? kFlashBit : 0);
    document.AppendChild("LIMITFILETYPE", Decimal(types).c_str());
    if (WriteWhole(ConfigPath(), document.GetText()))
        return true;
    ShowErrorMessage(GetLastError());
    return false;
}

void CDownloadSetting::WriteSizeLimit(CXmlDoc& document) const
{
    document.AppendChild("LIMITFILESIZE");
    document.EnterChild();
    WriteBound(document, "BIGTHAN", m_bBigThan, m_nBigThanKb);
    WriteBound(document, "SMALLTHAN", m_bSmallThan, m_nSmallThanKb);
    document.LeaveElement();
}

void CDownloadSetting::WriteResolutions(CXmlDoc& document) const
{
    document.AppendChild("LIMITRESOLVING");
    document.EnterChild();
    for (const auto& [width, height] : *m_resolutions.Get())
    {
        document.AppendChild("RESOLVING_CAP");
        document.AddChildAttribute("RESX", Decimal(width).c_str());
        document.AddChildAttribute("RESY", Decimal(height).c_str());
    }
    document.LeaveElement();
}
