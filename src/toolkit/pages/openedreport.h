// Are a report's rows with their pages. It stays where it is: its parts know one another by reference.
#pragma once

#include "toolkit/pages/report.h"
#include "toolkit/pages/reportlayout.h"
#include "toolkit/pages/reportrows.h"

#include <memory>

struct OpenedReport {
    OpenedReport(ReportDesign design, QString date, std::unique_ptr<ReportRows> ofReport)
        : rows(std::move(ofReport)), report{std::move(design), std::move(date), rows.get()}
    {
    }
    OpenedReport(const OpenedReport&) = delete;
    OpenedReport& operator=(const OpenedReport&) = delete;

    const std::unique_ptr<ReportRows> rows;
    const Report report;
    std::unique_ptr<ReportLayout> layout;
};
