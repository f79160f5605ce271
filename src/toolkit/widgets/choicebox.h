// Is a drop-down list that may show a text of its own while no entry is selected; nothing can be typed into
// it.
#pragma once

#include <QComboBox>

class ChoiceBox : public QComboBox {
    Q_OBJECT

public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    void setText(const QString& text); // no entry is selected then

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // letters choose

private:
    int entryOf(const QString& letter) const; // -1: none
};
