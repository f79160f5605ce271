#include "toolkit/widgets/glance.h"

#include "platform/urgent.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointingDevice>

#include <memory>
#include <utility>

namespace {

constexpr std::size_t kMostKept = 500; // a key that is held down must not fill the memory

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Close:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return true;
    default:
        return false;
    }
}

bool canBeLeftOut(QEvent::Type type)
{
    return type == QEvent::KeyPress || type == QEvent::MouseMove || type == QEvent::Wheel;
}

// They must be answered at once, which here means no.
bool isDrag(QEvent::Type type)
{
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

// Timers and connections tell again: nothing of theirs is lost.
bool waits(const QObject& watched, QEvent::Type type)
{
    if (type == QEvent::SockAct || type == QEvent::SockClose)
        return dynamic_cast<const Urgent*>(watched.parent()) == nullptr;
    return type == QEvent::Timer && qobject_cast<const QWindow*>(&watched) == nullptr;
}

// Events of the mouse share their place with the next one's, a copy of theirs too: it is taken out of them.
std::function<void(QObject&)> sendingAgain(const QEvent& event)
{
    const auto* mouse = dynamic_cast<const QMouseEvent*>(&event);
    if (!mouse)
        return [copy = std::shared_ptr<QEvent>(event.clone())](QObject& receiver) {
            QCoreApplication::sendEvent(&receiver, copy.get());
        };
    return [type = mouse->type(), place = mouse->position(), scene = mouse->scenePosition(),
            global = mouse->globalPosition(), button = mouse->button(), buttons = mouse->buttons(),
            modifiers = mouse->modifiers(), device = mouse->pointingDevice()](QObject& receiver) {
        QMouseEvent again(type, place, scene, global, button, buttons, modifiers, device);
        QCoreApplication::sendEvent(&receiver, &again);
    };
}

} // namespace

Glance::Glance(IsStop isStop) : m_isStop(std::move(isStop)) {}

Glance::~Glance()
{
    handOn();
}

bool Glance::stopWished()
{
    if (m_wished)
        return true;
    QCoreApplication::instance()->installEventFilter(this);
    m_looking = true;
    QCoreApplication::processEvents();
    m_looking = false;
    QCoreApplication::instance()->removeEventFilter(this);
    return m_wished;
}

void Glance::handOn()
{
    m_wished = false;
    for (const Kept& kept : std::exchange(m_kept, {}))
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [kept] {
                if (kept.receiver)
                    kept.send(*kept.receiver);
            },
            Qt::QueuedConnection);
}

bool Glance::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (!m_looking)
        return QObject::eventFilter(watched, event);
    if (type == QEvent::Shortcut)
        return keep(watched, *event), true;
    auto* window = qobject_cast<QWindow*>(watched);
    if (window && isDrag(type))
        return event->ignore(), true;
    if (!window || !isInput(type))
        return waits(*watched, type);
    const bool wished = m_isStop(*window, *event);
    m_wished = m_wished || wished;
    if (!wished || type != QEvent::KeyPress) // a key that stopped the work means nothing else
        keep(window, *event);
    return true;
}

// Of a motion only the end counts. What lets something go is kept however much there is: else a button would
// stay down.
void Glance::keep(QObject* receiver, const QEvent& event)
{
    const bool moves = event.type() == QEvent::MouseMove && !m_kept.empty() &&
                       m_kept.back().type == QEvent::MouseMove && m_kept.back().receiver == receiver;
    if (moves)
        m_kept.pop_back();
    if (m_kept.size() < kMostKept || !canBeLeftOut(event.type()))
        m_kept.push_back({receiver, event.type(), sendingAgain(event)});
}
