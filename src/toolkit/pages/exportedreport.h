// Is a report as an export gets it: its rows as values, and as pages.
#pragma once

class CharacterWidths;
class ReportLayout;
struct Report;

struct ExportedReport {
    const Report& report;
    const ReportLayout& layout;
    const CharacterWidths& widths;
};
