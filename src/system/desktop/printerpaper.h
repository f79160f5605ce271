// Tells the default printer's paper. The printing system is asked in a thread of its own, because one that
// does not answer would keep the whole program waiting.
#pragma once

#include "platform/paper.h"

#include <QElapsedTimer>
#include <QLocale>
#include <QPageLayout>

#include <chrono>
#include <future>
#include <optional>

class PrinterPaper {
public:
    // Returns that of the locale when there is no printer, or no answer yet. An answer is good for half a
    // minute.
    Paper paper();
    // Tells whether the printing system, or its absence, was heard of.
    bool isKnown(std::chrono::milliseconds patience);

    // Upright; the margins are those of the layout, or what the printer needs.
    static Paper of(const QPageLayout& layout);
    static Paper ofLocale(const QLocale& locale = QLocale());
    static Paper turned(const Paper& paper); // onto its other edge

private:
    using Answer = std::optional<Paper>;

    void ask();

    std::future<Answer> m_asked; // while nothing was heard
    Answer m_answer;
    QElapsedTimer m_since; // the answer
};
