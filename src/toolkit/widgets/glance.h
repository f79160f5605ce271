// Looks at the windows in the middle of work that nothing may disturb: they are painted, and a wish that the
// work should stop is noticed. No handler runs, no timer, no connection of the program's own; what a person
// does is kept, in its order, until the work hands it on.
//
// The exceptions are a signal that ends the program and what was queued by the desktop's player controls.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWindow>

#include <functional>
#include <vector>

class Glance : public QObject {
    Q_OBJECT

public:
    // Tells whether that event, on its way to a window, is the wish to stop. It is asked once for each.
    using IsStop = std::function<bool(const QWindow& window, const QEvent& event)>;

    explicit Glance(IsStop isStop);
    ~Glance() override;

    bool stopWished(); // looks; true from the first wish on
    // What was kept goes back into the event queue, behind what waits there; a wish is forgotten.
    void handOn();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Kept {
        QPointer<QObject> receiver;
        QEvent::Type type;
        std::function<void(QObject& receiver)> send;
    };

    void keep(QObject* receiver, const QEvent& event);

    IsStop m_isStop;
    std::vector<Kept> m_kept;
    bool m_looking = false;
    bool m_wished = false;
};
