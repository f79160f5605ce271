#include "bench/support/firstpaint.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    endAtFirstPaint();
    QMainWindow window;
    window.setObjectName(QStringLiteral("bare"));
    window.resize(860, 420);
    window.show();
    return QApplication::exec();
}
