// Is a program to drag files out of: `dragsource FILE...` shows a small window in the screen's corner that
// gives them to whatever takes them. It says "taken" when what is below the pointer would take them, else
// "refused".
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

#include <cstdio>

namespace {

class Source : public QWidget {
public:
    explicit Source(QList<QUrl> files) : m_files(std::move(files))
    {
        setWindowTitle(QStringLiteral("Drag source"));
        setFixedSize(120, 80);
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!event->buttons().testFlag(Qt::LeftButton))
            return;
        auto* drag = new QDrag(this); // the toolkit deletes it
        auto* files = new QMimeData;
        files->setUrls(m_files);
        drag->setMimeData(files);
        QObject::connect(drag, &QDrag::actionChanged, [](Qt::DropAction action) {
            std::puts(action == Qt::IgnoreAction ? "refused" : "taken");
            std::fflush(stdout);
        });
        drag->exec(Qt::CopyAction);
    }

private:
    QList<QUrl> m_files;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QList<QUrl> files;
    for (int i = 1; i < argc; ++i)
        files += QUrl::fromLocalFile(QString::fromLocal8Bit(argv[i]));
    Source source(std::move(files));
    source.show();
    return QApplication::exec();
}
