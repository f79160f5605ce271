// Asks where a report is exported to, and as what.
#pragma once

#include "toolkit/pages/exporter.h"

#include <optional>

class Dialogs;

struct ExportChoice {
    QString path;
    ExportKind kind;
};

// Returns nothing when nobody wants to. The name's ending tells the kind; a name with another one is of the
// kind that the dialog stood at.
std::optional<ExportChoice> askForExport(Dialogs& dialogs, const QString& title);
