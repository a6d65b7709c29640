// Makes the windows of a dialog from its template.
#pragma once

#include <memory>

class WindowRecord;
struct DialogTemplate;

// Null if the resources have no such template.
const DialogTemplate* FindDialogTemplate(int templateId);

// The hidden window of the dialog with all its controls. User-interface thread.
std::shared_ptr<WindowRecord> BuildDialog(const DialogTemplate& dialog, const std::shared_ptr<WindowRecord>& parent);
