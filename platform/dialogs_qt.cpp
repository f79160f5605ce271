#include "platform/dialogs_qt.h"

#include "platform/program.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QInputDialog>
#include <QMessageBox>

namespace {

QMessageBox::Icon iconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::None:
        return QMessageBox::NoIcon;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Warning:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

Answer answerOf(int button, MessageButtons buttons)
{
    if (buttons == MessageButtons::Ok)
        return Answer::Ok;
    return button == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

// A busy pointer over a question would look as if it could not be answered.
class PlainPointer {
public:
    PlainPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~PlainPointer() { QGuiApplication::restoreOverrideCursor(); }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;
};

} // namespace

Answer QtDialogs::message(const Message& message)
{
    if (m_program.ending()) // nobody is there to answer
        return message.buttons == MessageButtons::Ok ? Answer::Ok : Answer::No;
    const PlainPointer pointer;
    QMessageBox box(iconOf(message.icon), message.title, message.text, QMessageBox::NoButton,
                    QApplication::activeWindow());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    box.setStandardButtons(message.buttons == MessageButtons::Ok ? QMessageBox::Ok
                                                                 : QMessageBox::Yes | QMessageBox::No);
    box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint);
    if (QAbstractButton* ok = box.button(QMessageBox::Ok))
        ok->setIcon(QIcon(QStringLiteral(":/icons/ok.svg")));
    return answerOf(box.exec(), message.buttons);
}

void QtDialogs::runTimeError(const RunTimeError& error)
{
    message({.text = QStringLiteral("Run-time error '%1':\n\n%2").arg(error.number()).arg(error.text()),
             .title = m_program.title(),
             .icon = MessageIcon::Critical});
}

std::optional<QString> QtDialogs::inputBox(const QString& prompt, const QString& title)
{
    bool ok = false;
    const QString text =
        QInputDialog::getText(QApplication::activeWindow(), title, prompt, QLineEdit::Normal, {}, &ok);
    return ok ? std::optional(text) : std::nullopt;
}
