// A Qt program that shows one empty dialog.
#include <QApplication>
#include <QDialog>

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    QDialog dialog;
    return dialog.exec();
}
