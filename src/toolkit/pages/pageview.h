// Shows pages below one another, white on a grey ground, and scrolls through them. Only what is seen is laid
// out and painted, so that it does not matter how many there are.
#pragma once

#include "toolkit/pages/hitmarks.h"
#include "toolkit/pages/pagecolumn.h"
#include "toolkit/pages/pagepainter.h"

#include <QAbstractScrollArea>

#include <map>
#include <optional>

// Is what a view shows; all of it must outlive that.
struct ShownPages {
    const ReportLayout* layout = nullptr;
    const ReportRows* rows = nullptr;
    const CharacterWidths* widths = nullptr;
};

class PageView : public QAbstractScrollArea {
    Q_OBJECT

public:
    enum class Fit { None, Width, Page };

    explicit PageView(QWidget* parent = nullptr);

    void showPages(const ShownPages& pages); // begins at the first page
    // Serves the same rows on another paper; the marks stay, the page has to be told.
    void changeLayout(const ReportLayout& layout);
    const ReportLayout* layout() const { return m_pages.layout; }

    int page() const { return m_page; } // from 1
    void goToPage(int page);            // or the nearest that there is

    Fit fit() const { return m_fit; }
    void setFit(Fit fit);
    double zoom() const { return m_zoom; } // 1 is the paper's own size
    void setZoom(double zoom);
    void zoomBy(int steps); // in levels that a reader expects

    // Marks what it finds; null marks nothing. The finder must outlive that.
    void setFinder(const TextFinder* finder);
    void goToHit(const TextFinder::Hit& hit); // and marks it as the current one

    const std::vector<PageItem>& items(int page) const;
    QRectF placeOfPage(int page) const; // in the viewport's pixels
    double pixelsPerPoint() const;

Q_SIGNALS:
    void pageChanged();
    void zoomChanged();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    // Is a spot of a page that stays where it is seen while all else changes.
    struct Anchor {
        QPointF seen; // in the viewport
        int page = 1;
        QPointF spot; // points
    };

    PageColumn column() const;
    std::int64_t top() const;
    void scrollTo(std::int64_t top);
    Anchor anchorAt(QPointF seen) const;
    void rearrange(const Anchor& anchor);
    void applyZoom(double zoom, QPointF seen);
    double fittingZoom() const;
    double nextLevel(int direction) const;
    void setPage(int page);
    void turn(int direction);
    void scrollBy(int dx, int dy);
    bool handleKey(const QKeyEvent& key);
    const HitMark* markOf(const TextFinder::Hit& hit, int page);
    void showMark(const HitMark& mark, int page);
    const std::vector<HitMark>& marks(int page);
    void paintGround(QPainter& painter, const QRect& area);
    void paintOne(QPainter& painter, int page, const QRect& area);
    void paintMarks(QPainter& painter, int page);

    ShownPages m_pages;
    std::optional<PagePainter> m_painter;
    Fit m_fit = Fit::Width;
    double m_zoom = 1;
    int m_page = 1;
    std::int64_t m_pixelsPerStep = 1; // of the scroll bar: it counts in ints
    bool m_steered = false;           // the page is told, not taken from where the view stands
    bool m_showsFocus = false;
    int m_wheel = 0; // turned with Ctrl, in eighths of a degree, and not used yet
    const TextFinder* m_finder = nullptr;
    std::optional<TextFinder::Hit> m_current;
    mutable std::map<int, std::vector<PageItem>> m_items; // of the pages that are seen
    std::map<int, std::vector<HitMark>> m_marks;          // the same
};
