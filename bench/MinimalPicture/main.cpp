// The floor the toolkit sets for the start-up bench: a program that shows a
// picture file in a frameless window at the screen's origin, and does
// nothing else.
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPixmap>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) return 2;
    QLabel window(nullptr, Qt::FramelessWindowHint);
    window.setPixmap(QPixmap::fromImage(QImage(QString::fromLocal8Bit(argv[1]))));
    window.move(0, 0);
    window.show();
    return application.exec();
}
