// Prints pages that are painted one by one: into a PDF file first, which then goes to the printer or into its
// place as a whole, so that nothing is printed of what was given up.
#pragma once

#include "platform/printer.h"
#include "system/desktop/printchoice.h"

using PrintProgress = std::function<bool(int, int)>;

PrintEnd printChosenPages(const PrintChoice& choice, PrintedPages& pages, const PrintProgress& progress);
