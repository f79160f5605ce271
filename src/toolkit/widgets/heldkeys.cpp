#include "toolkit/widgets/heldkeys.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

#include <map>

namespace {

// The X server sends a repeat as a release and a press at one moment. The toolkit marks it only when both
// have arrived by the time it looks; no hand is so quick.
constexpr quint64 kOneMoment = 2; // milliseconds

class HeldKeys : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyRelease)
            note(*static_cast<QKeyEvent*>(event));
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
            return false;
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (!isRepeat(key) || !activates(key))
            return false;
        event->accept(); // else a shortcut would still see it
        return true;
    }

private:
    void note(const QKeyEvent& key) { m_released[key.nativeScanCode()] = key.timestamp(); }

    bool isRepeat(const QKeyEvent& key) const
    {
        const auto released = m_released.find(key.nativeScanCode());
        const bool known = key.nativeScanCode() != 0 && released != m_released.end();
        return key.isAutoRepeat() || (known && key.timestamp() - released->second <= kOneMoment);
    }

    static bool activates(const QKeyEvent& key)
    {
        const QWidget* focus = QApplication::focusWidget();
        const bool onButton = qobject_cast<const QAbstractButton*>(focus) != nullptr;
        switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return onButton || qobject_cast<const QAbstractItemView*>(focus) != nullptr ||
                   qobject_cast<const QLineEdit*>(focus) != nullptr;
        case Qt::Key_Space:
            return onButton;
        default:
            return key.modifiers().testFlag(Qt::AltModifier) && !key.text().isEmpty();
        }
    }

    std::map<quint32, quint64> m_released; // by scan code: the moment, in milliseconds
};

} // namespace

void ignoreHeldKeys()
{
    static QPointer<HeldKeys> filter;
    if (filter)
        return;
    filter = new HeldKeys(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(filter);
}
