// Hands a report's pages to the printer, laid out for the printer's paper.
#pragma once

#include "platform/printedpages.h"
#include "toolkit/pages/report.h"

#include <memory>

class CharacterWidths;
class ReportLayout;

class ReportPages : public PrintedPages {
public:
    // Both must outlive it.
    ReportPages(const Report& report, const CharacterWidths& widths);
    ~ReportPages() override;

    QString title() const override { return m_report.design.title; }
    bool isWide() const override { return m_report.design.isWide; }
    int layOut(const Paper& paper) override;
    void paintPage(QPainter& painter, int page) override;

    // Gives the pages as they were printed; null when none were asked for.
    std::unique_ptr<ReportLayout> takeLayout();

private:
    const Report& m_report;
    const CharacterWidths& m_widths;
    std::unique_ptr<ReportLayout> m_layout;
};
