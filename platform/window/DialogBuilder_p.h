// Makes the windows of a dialog from its template.
#pragma once

#include <memory>

class WindowRecord;

// The hidden window of the dialog with all its controls; null if the resources have no such template. User-interface
// thread.
std::shared_ptr<WindowRecord> BuildDialog(int templateId, const std::shared_ptr<WindowRecord>& parent);
