// A run without a dialog: the fetch loop, whose progress goes wherever its maker says.
#pragma once

#include "download/DownloadRun.h"
#include "download/ProgressFields.h"

#include "platform/testing/TempHome.h"

// Gives a run an empty save folder in a home.
void SetSaveFolder(CDownloadRun& run, const TempHome& home);
// Counts what the run brought.
void ExpectSaved(const TempHome& home, int count);

class BareRun final : public CDownloadRun
{
public:
    // Without fields there is no window.
    explicit BareRun(CProgressFields* fields = nullptr) : m_fields(fields ? fields : &m_none)
    {
        m_bRunning = 1;
    }

private:
    CProgressFields& ProgressFields() override
    {
        return *m_fields;
    }
    bool IsStopRequested() const override
    {
        return false;
    }
    void OnFetchEnds() override
    {}
    void OnSetup() override
    {}

    CProgressFields m_none;
    CProgressFields* const m_fields;
};
