// Tells where on a page found texts stand.
#pragma once

#include "toolkit/pages/reportlayout.h"
#include "toolkit/pages/textfinder.h"

#include <QRectF>

#include <vector>

struct HitMark {
    QRectF place; // points, as the page's items
    TextFinder::Hit hit;
};

// A hit that goes on in the next line has two marks.
std::vector<HitMark> hitMarks(const std::vector<PageItem>& items, const ReportRows& rows,
                              const TextFinder& finder);
