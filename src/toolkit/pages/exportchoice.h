// Asks where a report is exported to, and as what.
#pragma once

#include "toolkit/pages/exporter.h"

#include <optional>

class Dialogs;
class Files;

struct ExportChoice {
    QString path;
    ExportKind kind;
};

// Offers a file of that name. Returns nothing when nobody wants to. The name's ending tells the kind; a name
// with another one is of the kind that the dialog stood at. A file that is there under such a name, the
// archive for one, is no export: none takes its place, and the user is told so.
std::optional<ExportChoice> askForExport(Dialogs& dialogs, Files& files, const QString& name);
