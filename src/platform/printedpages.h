// Are pages that whoever prints them asks for, one by one. Pages count from 1, lengths are points.
#pragma once

#include "platform/paper.h"

#include <QString>

class QPainter;

class PrintedPages {
public:
    virtual ~PrintedPages() = default;

    virtual QString title() const = 0; // of the document
    virtual bool isWide() const = 0;   // are they made for a paper that is wider than high?
    // Lays the pages out for that paper and returns how many they are, at least 1.
    virtual int layOut(const Paper& paper) = 0;
    // The painter's unit is a point, its origin the paper's upper left corner.
    virtual void paintPage(QPainter& painter, int page) = 0;
};
