// The Setup command of the windows that can own a run.
#pragma once

class CDownloadSetting;

// Opens the settings sheet on a record and returns when it has closed; the pages have written into the record
// themselves. On a worker the sheet blocks that worker alone.
void RunSettingsSheet(CDownloadSetting& setting);
