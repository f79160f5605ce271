// Makes a grid's column headings of labels that stay over their columns; the borders between them drag the
// columns.
#pragma once

#include <QHeaderView>

class QLabel;

class HeadingLabels : public QHeaderView {
    Q_OBJECT

public:
    struct Heading {
        const char* name;
        QString caption;
    };

    explicit HeadingLabels(const std::vector<Heading>& headings, QWidget* parent = nullptr);

    QLabel* label(int column) const { return m_labels[static_cast<std::size_t>(column)]; }

protected:
    QSize sectionSizeFromContents(int column) const override;
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();

    std::vector<QLabel*> m_labels;
};
