// Makes the windows of a dialog from its template.
#pragma once

#include <memory>

class QRect;
class QWidget;
class WindowRecord;
struct DialogTemplate;

// Null if the resources have no such template.
const DialogTemplate* FindDialogTemplate(int templateId);

// The hidden window of the dialog with all its controls. User-interface thread.
std::shared_ptr<WindowRecord> BuildDialog(const DialogTemplate& dialog, const std::shared_ptr<WindowRecord>& parent);

// The hidden window of a property sheet's page, in that area of the sheet. Its controls come behind `before` in Tab
// order. User-interface thread.
std::shared_ptr<WindowRecord> BuildPage(const DialogTemplate& page, const std::shared_ptr<WindowRecord>& sheet,
                                        const QRect& area, QWidget* before);
