// Is the box in which a reader chooses how large pages are shown, or types it in percent.
#pragma once

#include <QComboBox>

class PageView;

class ZoomBox : public QComboBox {
    Q_OBJECT

public:
    // The view must outlive it.
    explicit ZoomBox(PageView& view, QWidget* parent = nullptr);

private:
    void take(const QString& text);
    void showZoom();

    PageView& m_view;
};
