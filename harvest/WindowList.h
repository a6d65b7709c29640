// The list of the open browser windows with title, address and tick: a snapshot, filled on demand. User-interface
// thread only.
#pragma once

#include "platform/browser/ObjectModel.h"
#include "platform/window/Controls.h"

class CUrlList;

class CWindowList : public CListCtrl
{
public:
    // Sets columns and style; once, before the first Refill.
    void Prepare();
    // Empties the list and gives each window with an HTML document a ticked row, in the collection's order. When the
    // collection fails on the way, the rows read so far stay.
    void Refill(IShellWindows* windows);

    bool HasTick() const;
    void TickAll();
    void ReverseTicks();
    // Adds the addresses of the ticked rows to a list, each once.
    void AddTickedPages(CUrlList& pages) const;

private:
    void AddRow(LONG index, IHTMLDocument2& document);
};
