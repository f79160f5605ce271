// Is the print preview of a grid: a window with a grid has it as a member. The preview shows the rows as they
// were when it was opened, and goes with its window.
#pragma once

#include "toolkit/pages/previewform.h"

#include <QPointer>

class QTableView;
struct Platform;

// Is the grid, and how its preview is called.
struct PreviewedGrid {
    QString name{};  // of the preview window
    QString title{}; // of the document
    const QTableView* grid = nullptr;
    std::function<QString(int row, int column)> textAt; // whole
    bool isWide = false;
};

class GridPreview {
public:
    GridPreview(const Platform& platform, PreviewedGrid grid);
    ~GridPreview();
    GridPreview(const GridPreview&) = delete;
    GridPreview& operator=(const GridPreview&) = delete;

    void show();  // or brings to the front as it stands
    void close(); // what it does still ends by itself

private:
    PreviewSeams m_seams;
    PreviewedGrid m_grid;
    QPointer<PreviewForm> m_form;
};
