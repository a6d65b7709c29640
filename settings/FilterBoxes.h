// How the check boxes of the settings page follow each other: pure. A box is named by what it is ticked for; the one
// that was clicked has its new state already.
#pragma once

// "Limit Download File Size" and the two bounds below it.
struct CSizeBoxes
{
    bool m_bLimit = false;
    bool m_bBigThan = false;
    bool m_bSmallThan = false;

    // A bound was clicked: without bounds there is no limit, and a bound brings it back.
    void OnBoundClicked()
    {
        m_bLimit = m_bBigThan || m_bSmallThan;
    }
    // A limit without bounds limits nothing.
    bool IsLimiting() const
    {
        return m_bLimit && (m_bBigThan || m_bSmallThan);
    }
};

// The kinds of file.
struct CTypeBoxes
{
    bool m_bImages = false;
    bool m_bMp3 = false;
    bool m_bFlash = false;

    bool IsAnyTicked() const
    {
        return m_bImages || m_bMp3 || m_bFlash;
    }
};
