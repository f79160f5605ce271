#include "toolkit/widgets/stopbox.h"

#include "platform/program.h"
#include "toolkit/widgets/windowlook.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr std::chrono::milliseconds kUntold(300); // what is over soon is not worth a box
constexpr int kWidth = 340;

} // namespace

StopBox::StopBox(Program& program, QString title, QString text)
    : m_program(program), m_title(std::move(title)), m_text(std::move(text))
{
}

StopBox::~StopBox()
{
    hide();
}

void StopBox::hide()
{
    delete m_box;
}

bool StopBox::goesOn()
{
    if (m_stopped || !m_throttle.due())
        return !m_stopped;
    if (!m_box && Throttle::Clock::now() - m_begin >= kUntold)
        show();
    if (m_box)
        m_program.yield();
    m_stopped = m_stopped || m_program.ending();
    return !m_stopped;
}

void StopBox::show()
{
    m_program.setBusyPointer(false); // it can be answered
    m_box = new QDialog(QApplication::activeWindow());
    m_box->setObjectName(QStringLiteral("StopBox"));
    m_box->setWindowTitle(m_title);
    m_box->setWindowModality(Qt::ApplicationModal);
    auto* column = new QVBoxLayout(m_box);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    auto* label = new QLabel(m_text, m_box);
    label->setMinimumWidth(kWidth);
    auto* bar = new QProgressBar(m_box);
    bar->setRange(0, 0); // nobody knows how long
    bar->setTextVisible(false);
    auto* stop = new QPushButton(QObject::tr("&Stop"), m_box);
    stop->setObjectName(QStringLiteral("cmdStop"));
    windowlook::makeCommand(*stop);
    column->addWidget(label);
    column->addWidget(bar);
    column->addWidget(stop, 0, Qt::AlignRight);
    QObject::connect(stop, &QPushButton::clicked, m_box, &QDialog::reject);
    QObject::connect(m_box, &QDialog::rejected, m_box, [this] { m_stopped = true; });
    m_box->show();
    stop->setFocus();
}
