// The second page of the settings sheet: the program's button on the browser's toolbar. Its commands act at once; the
// sheet's OK, Cancel and Apply do not concern it.
#pragma once

#include "platform/window/PropertySheet.h"

class CPropPageGeneral : public CPropertyPage
{
public:
    CPropPageGeneral();

protected:
    const MessageMap& GetMessageMap() const override;

private:
    void OnAdd();
    void OnRemove();
};
