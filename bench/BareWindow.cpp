// The least that a program of the toolkit can show: the peer of the program's start.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle("Bare");
    window.resize(640, 400);
    window.show();
    return QApplication::exec();
}
