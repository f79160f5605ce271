// Plays an archive entry: its file is handed to the desktop, after a look whether the right disk is in the
// drive.
#pragma once

#include "archive/core/archivecontext.h"

#include <QString>

// The disk is checked by the record editor's boxes, the file that is played is the shared PlayPath. Errors
// end it without a word, and what the desktop makes of the request is not looked at.
void playEntry(ArchiveContext& context, const QString& editorPath, const QString& editorDiskName);
