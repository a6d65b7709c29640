// A dialog of several pages, of which one is on show, with OK, Cancel and Apply.
//
// Pages are dialog templates of the resource table. A page's window is made when it is first shown, as a child of the
// sheet, in the display area of the tab control; all have the size of the largest. Pages must outlive DoModal; a page
// that goes before its sheet takes itself out of it.
//
// What a page is asked comes as WM_NOTIFY with an NMHDR and the codes below; an answer other than 0 refuses.
#pragma once

#include "platform/window/Dialog.h"
#include "platform/window/TabCtrl.h"

#include <vector>

// Messages of a sheet, under their published numbers. The default handling does the work, so a derived sheet that
// handles one of them comes before it and, behind Default(), after it.
inline constexpr UINT PSM_SETCURSEL = WM_USER + 101;  // WPARAM: the page's number; sent for tabs and keys too. 1: done
inline constexpr UINT PSM_REMOVEPAGE = WM_USER + 102; // WPARAM: the page's number
inline constexpr UINT PSM_ADDPAGE = WM_USER + 103;    // LPARAM: the CPropertyPage. 1: done
inline constexpr UINT PSM_CHANGED = WM_USER + 104;    // WPARAM: the window of a page that has changes to apply
inline constexpr UINT PSM_UNCHANGED = WM_USER + 109;  // WPARAM: the window of one that has none any more

inline constexpr UINT PSN_SETACTIVE = static_cast<UINT>(-200);
inline constexpr UINT PSN_KILLACTIVE = static_cast<UINT>(-201); // also sent by hand, to leave a page for none
inline constexpr UINT PSN_APPLY = static_cast<UINT>(-202);
inline constexpr UINT PSN_RESET = static_cast<UINT>(-203);
inline constexpr LRESULT PSNRET_NOERROR = 0;
inline constexpr LRESULT PSNRET_INVALID_NOCHANGEPAGE = 2;

inline constexpr int ID_APPLY_NOW = 0x3021;
inline constexpr int AFX_IDC_TAB_CONTROL = 0x3020;

inline constexpr DWORD PSP_USEHICON = 0x2;
inline constexpr DWORD PSP_USETITLE = 0x8;
inline constexpr DWORD PSP_HASHELP = 0x20; // no sheet has a Help button: no effect

// Read when the page's tab is made.
struct PROPSHEETPAGE
{
    DWORD dwFlags = 0;
    HICON hIcon;          // on its tab, with PSP_USEHICON
    std::string pszTitle; // instead of its template's caption, with PSP_USETITLE
};

class CPropertySheet;

class CPropertyPage : public CDialog
{
public:
    explicit CPropertyPage(UINT templateId);
    ~CPropertyPage() override;

    PROPSHEETPAGE m_psp;

    // Whether there is something to apply: the sheet's Apply is enabled while a page has. Before the page's window is
    // made it does nothing.
    void SetModified(BOOL changed = TRUE);

    // Before the page shows. FALSE keeps the one that is on show.
    virtual BOOL OnSetActive();
    // Before another page shows, and before OK and Apply. Takes the data of the controls; FALSE keeps the page.
    virtual BOOL OnKillActive();
    // OK or Apply was pressed; FALSE keeps the sheet open, with this page. Calls OnOK.
    virtual BOOL OnApply();
    // The sheet is cancelled. Calls OnCancel.
    virtual void OnReset();
    void OnOK() override;
    void OnCancel() override;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    friend class CPropertySheet;

    std::string Title();

    CPropertySheet* m_pSheet = nullptr;
    bool m_bModified = false;
};

// Pages count from 0. DoModal gives IDOK or IDCANCEL, also after Apply; on which threads, and over which window without
// a parent, is told at CDialog. Before the window is made, members are called on the thread that calls DoModal.
class CPropertySheet : public CDialog
{
public:
    explicit CPropertySheet(std::string caption, CWnd* parent = nullptr, UINT firstPage = 0);
    ~CPropertySheet() override;

    // Behind the others. Of a sheet on show the size stays as it is.
    void AddPage(CPropertyPage* page);
    // A page on show is not asked; the next one shows, or the one before.
    void RemovePage(CPropertyPage* page);
    // FALSE if there is no such page, or it or the one on show refuses. The page on show is shown again if it is
    // hidden.
    BOOL SetActivePage(int index);
    BOOL SetActivePage(CPropertyPage* page);
    int GetActiveIndex() const;
    // Null without pages.
    CPropertyPage* GetActivePage() const;
    int GetPageCount() const;
    // Null, or -1, for what is not there.
    CPropertyPage* GetPage(int index) const;
    int GetPageIndex(const CPropertyPage* page) const;
    // Its window stands from the sheet's OnInitDialog on; hidden and disabled, it still tells where pages go.
    CTabCtrl* GetTabControl();

    // The tabs always stand in one row: nothing to switch.
    void EnableStackedTabs(BOOL)
    {}

    // The layer's own.
    const DialogTemplate* FindTemplate() override;

protected:
    // Makes the tabs, gives the sheet its size and shows the first page, on whose first control it puts the focus.
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    // A WM_KEYDOWN of Tab, Enter, Esc, a letter or a digit, before the control that has the focus gets it; TRUE if the
    // key is used up. Ctrl+Tab and Ctrl+Shift+Tab lead from page to page, and around at the ends.
    virtual BOOL PreTranslateMessage(MSG* message);

    const MessageMap& GetMessageMap() const override;
    static const MessageMap& StaticMessageMap();
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct Frame;

    void FilterKeys();
    void LayOut();
    void InsertTab(CPropertyPage& page);
    bool JoinPage(CPropertyPage* page);
    bool DropPage(int index);
    bool MakePage(CPropertyPage& page);
    bool MayLeave();
    bool ShowPage(int index);
    void PutOnShow(CPropertyPage& page);
    bool ApplyPages();
    void Note(HWND window, bool modified);
    void ShowModified() const;
    void OnApplyNow();
    LRESULT OnTabChanged(NMHDR&);

    const std::string m_caption;
    std::unique_ptr<Frame> m_frame; // what the window is made from
    std::vector<CPropertyPage*> m_pages;
    CTabCtrl m_tabs;
    int m_nActive;
    bool m_bLeft = false; // the page on show has agreed to be left
};
