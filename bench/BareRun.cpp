#include "bench/BareRun.h"

#include "bench/Bench.h"

#include <unistd.h>

void SetSaveFolder(CDownloadRun& run, const TempHome& home)
{
    home.Write("Download/.keep", "");
    run.m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(home.Path("Download")));
}

void ExpectSaved(const TempHome& home, int count)
{
    // The run has entered the save folder, which goes with the home.
    Expect(chdir("/") == 0, "no root folder");
    Expect(home.Files("Download").size() == static_cast<std::size_t>(count) + 1, "the run did not bring every file");
}
