#include "toolkit/widgets/form.h"

#include "platform/dialogs.h"
#include "platform/keycode.h"
#include "platform/program.h"
#include "toolkit/widgets/heldkeys.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <algorithm>

namespace {

constexpr QSize kFrame(16, 48); // what a window manager puts round a window

int keyCodeOf(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        return keycode::Escape;
    case Qt::Key_PageUp:
        return keycode::PageUp;
    case Qt::Key_PageDown:
        return keycode::PageDown;
    case Qt::Key_End:
        return keycode::End;
    case Qt::Key_Home:
        return keycode::Home;
    case Qt::Key_Up:
        return keycode::Up;
    case Qt::Key_Down:
        return keycode::Down;
    default:
        return keycode::Other;
    }
}

int shiftStateOf(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) + (modifiers & Qt::ControlModifier ? 2 : 0) +
           (modifiers & Qt::AltModifier ? 4 : 0);
}

QChar typedCharacter(const QKeyEvent& key)
{
    const bool isCommand = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return isCommand || key.text().size() != 1 ? QChar() : key.text().front();
}

} // namespace

Form::Form(Dialogs& dialogs, Program& program, const char* name, const QString& caption)
    : m_dialogs(dialogs), m_program(program)
{
    setObjectName(QLatin1String(name));
    setWindowTitle(caption);
    setCentralWidget(new QWidget(this));
    ignoreHeldKeys();
}

Form::~Form() = default;

void Form::load()
{
    if (m_loaded || m_gone)
        return;
    m_loaded = true;
    m_loading = true;
    guard([this] { Form_Load(); });
    m_loading = false;
}

void Form::showForm()
{
    const bool wasLoaded = m_loaded;
    load();
    const bool shownByItself = !wasLoaded && isVisible();
    if (closing() || m_gone || shownByItself)
        return;
    if (isVisible() && isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    if (!m_placed && windowState() == Qt::WindowNoState)
        centre();
    show();
    raise();
    activateWindow();
}

void Form::showWithoutFocus()
{
    if (closing() || m_gone)
        return;
    setAttribute(Qt::WA_ShowWithoutActivating);
    if (!m_placed && windowState() == Qt::WindowNoState)
        centre();
    show();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

// The owner need not be shown yet. Of windows that are no dialogs the window manager is told no owner.
void Form::standOver(Form& owner)
{
    if (isVisible())
        return;
    setWindowFlag(Qt::Dialog);
    winId();
    owner.winId();
    windowHandle()->setTransientParent(owner.windowHandle());
}

void Form::unload()
{
    if (m_closing || m_gone || !Form_QueryUnload())
        return;
    m_closing = true;
    // Whoever waits for an answer goes on without; a question would not outlive the window it lies over.
    for (QDialog* question : findChildren<QDialog*>())
        question->reject();
    if (busy())
        hide();
    else
        finishUnload();
}

void Form::finishUnload()
{
    m_gone = true;
    guard([this] { Form_Unload(); });
    hide();
    Q_EMIT unloaded();
    deleteLater();
}

bool Form::closing() const
{
    return m_closing || m_program.ending();
}

void Form::guard(const std::function<void()>& handler)
{
    ++m_depth;
    try {
        handler();
    } catch (const StoppingError& error) {
        report(error, true);
    } catch (const RunTimeError& error) {
        report(error, false);
    } catch (const std::bad_alloc&) {
        report(RunTimeError(ErrorNumber::OutOfMemory), false);
    }
    --m_depth;
    if (m_depth == 0 && m_closing && !m_gone && !m_program.ending())
        finishUnload();
}

void Form::report(const RunTimeError& error, bool stops)
{
    m_dialogs.runTimeError(error);
    if (stops)
        m_program.end(1);
}

QSize Form::innerSize() const
{
    return centralWidget()->size();
}

void Form::makeButtons(std::initializer_list<ButtonRow> rows)
{
    for (const ButtonRow& row : rows) {
        row.member = named(new QPushButton(row.caption, centralWidget()), row.name);
        row.member->setToolTip(row.toolTip);
        row.member->setAutoDefault(false);
        if (!row.icon.isEmpty())
            m_icons.emplace_back(row.member, row.icon);
        connect(row.member, &QPushButton::clicked, this, [this, handler = row.handler] { guard(handler); });
    }
}

void Form::makeLabels(std::initializer_list<LabelRow> rows)
{
    for (const LabelRow& row : rows) {
        row.member = named(new QLabel(row.caption, centralWidget()), row.name);
        row.member->setTextFormat(Qt::PlainText);
    }
}

void Form::setKeys(QPushButton* enter, QPushButton* escape)
{
    m_enter = enter;
    m_escape = escape;
}

QSize Form::fittingSize(QSize wanted)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? wanted.boundedTo(screen->availableSize() - kFrame) : wanted;
}

void Form::resizeFor(QSize wanted)
{
    decorate(); // pictures take room, too
    QLayout* layout = centralWidget()->layout();
    layout->activate();
    wanted = wanted.expandedTo(layout->totalMinimumSize());
    const int height = layout->hasHeightForWidth() ? layout->totalHeightForWidth(wanted.width())
                                                   : layout->totalSizeHint().height();
    resize(fittingSize({wanted.width(), std::max(wanted.height(), height)}));
}

QList<QPushButton*> Form::inDesktopOrder(QPushButton* accept, QPushButton* reject) const
{
    const int order = style()->styleHint(QStyle::SH_DialogButtonLayout, nullptr, this);
    const bool acceptFirst = order == QDialogButtonBox::WinLayout || order == QDialogButtonBox::KdeLayout;
    return acceptFirst ? QList{accept, reject} : QList{reject, accept};
}

void Form::makeDialog()
{
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
}

// The window comes over the active window, inside the screen; the user's own placing is kept from then on.
void Form::centre()
{
    m_placed = true;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect room = screen->availableGeometry();
    const QWidget* active = QApplication::activeWindow();
    const QPoint middle = active ? active->frameGeometry().center() : room.center();
    const QSize free = room.size() - size() - kFrame;
    const QPoint wanted = middle - rect().center() - room.topLeft();
    move(room.topLeft() + QPoint(std::clamp(wanted.x(), 0, std::max(free.width(), 0)),
                                 std::clamp(wanted.y(), 0, std::max(free.height(), 0))));
}

void Form::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    auto* focused = qobject_cast<QAbstractButton*>(focusWidget());
    if (qobject_cast<QCheckBox*>(focused) || qobject_cast<QRadioButton*>(focused))
        focused = nullptr; // only Space turns them
    if (key == Qt::Key_Escape && m_escape)
        m_escape->click();
    else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && (focused || m_enter))
        (focused ? focused : m_enter)->click();
    else
        QMainWindow::keyPressEvent(event);
}

bool Form::Form_KeyDown(int, int)
{
    return false;
}

bool Form::Form_KeyPress(QChar)
{
    return false;
}

// Keys are seen before any control has them: a filter on the window alone would see only what its controls
// leave.
void Form::setKeyPreview()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool Form::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(watched) : nullptr;
    if (!widget || widget->window() != this || closing())
        return QMainWindow::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    // It is taken before anything runs: a key whose handler fails would else go on to each widget round its
    // control, and come here again, and fail again, for each of them.
    bool taken = true;
    guard([&] {
        taken = Form_KeyDown(keyCodeOf(key->key()), shiftStateOf(key->modifiers()));
        if (const QChar typed = typedCharacter(*key); !taken && !typed.isNull() && !closing())
            taken = Form_KeyPress(typed);
    });
    return taken;
}

void Form::closeEvent(QCloseEvent* event)
{
    event->ignore();
    unload();
}

void Form::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    resized();
}

void Form::decorate()
{
    for (const auto& [button, icon] : m_icons) {
        button->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(icon)));
        // A least size that was set by hand is for small letters and would cut large ones.
        if (button->minimumWidth() > 0)
            button->setMinimumSize(button->minimumSize().expandedTo(button->sizeHint()));
    }
    m_icons.clear();
}

void Form::showEvent(QShowEvent* event)
{
    decorate();
    QMainWindow::showEvent(event);
    resized();
}

void Form::resized()
{
    if (m_loaded && !m_gone)
        guard([this] { Form_Resize(); });
}
