// Shows texts that change thousands of times a second: its text is right at any moment, and what it shows
// follows at showCaption().
#pragma once

#include <QLabel>

class ProgressLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QString caption READ caption WRITE setCaption)

public:
    explicit ProgressLabel(QWidget* parent = nullptr);

    const QString& caption() const { return m_caption; }
    void setCaption(const QString& caption) { m_caption = caption; }
    void showCaption();

    // The width of a path or of a statement must not decide the window's.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    QString m_caption;
};
