// The baseline of the start: the least that a Qt program with a window of the same size can do.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Morvane Quillshift 3.0 baseline"));
    window.resize(772, 579);
    window.show();
    return QApplication::exec();
}
