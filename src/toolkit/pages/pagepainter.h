// Paints a page of a report. The painter's unit is a point, its origin the paper's upper left corner.
#pragma once

#include "toolkit/pages/reportlayout.h"

class QPainter;

void paintPage(QPainter& painter, const std::vector<PageItem>& items, const CharacterWidths& widths);
