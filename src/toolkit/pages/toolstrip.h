// Is a row of tool buttons, each of an action, and of other controls. Where there is no room for the texts
// beside the icons it shows the icons alone.
#pragma once

#include <QWidget>

class QAction;
class QHBoxLayout;
class QToolButton;

class ToolStrip : public QWidget {
    Q_OBJECT

public:
    explicit ToolStrip(QWidget* parent = nullptr);

    void addButton(QAction* action);
    void addButtonWithText(QAction* action);
    void addControl(QWidget* control);
    void addGap();
    void addSpring();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QToolButton* makeButton(QAction* action);
    int widthWith(Qt::ToolButtonStyle style) const;

    QHBoxLayout* m_row;
    QList<QToolButton*> m_worded;
};
