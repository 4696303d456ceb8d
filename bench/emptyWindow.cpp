#include <QApplication>
#include <QWidget>

/// The least that a program with a window takes.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(649, 419);
    window.show();
    return QApplication::exec();
}
