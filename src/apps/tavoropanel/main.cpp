#include <tavoropanel/window/mainwindow.h>
#include <tavorosession/session.h>

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavoropanel"));
    Tavoro::Session session;
    Tavoro::Panel::MainWindow window(session);
    window.show();
    return QApplication::exec();
}
