// A host with a window and a button that hands a work folder over to the module. While the module's dialog is open the
// window can't be used; both live in one QApplication.
//
//   host-qt WORK_FOLDER [ROUTES]
#include <QApplication>
#include <QMainWindow>
#include <QPushButton>
#include <QShortcut>

#include <jlandxml/JLandXmlConvert.h>

#include <cstdio>
#include <string>

int main(int count, char** values)
{
    QApplication application(count, values);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2)
    {
        std::fputs("host-qt WORK_FOLDER [ROUTES]\n", stderr);
        return 2;
    }
    const std::wstring folder = arguments[1].toStdWString();
    const int routes = arguments.value(2).toInt();

    QMainWindow window;
    QPushButton button(QStringLiteral("J-LandXML出力(&J)..."));
    QObject::connect(&button, &QPushButton::clicked, [&] {
        ExecuteQuorvane(folder.c_str(), routes);
        // The call tells nothing, neither success nor cancel: the user has seen it.
        std::puts("The dialog was closed.");
    });
    const QShortcut quit(QKeySequence(Qt::CTRL | Qt::Key_Q), &window);
    QObject::connect(&quit, &QShortcut::activated, &window, &QMainWindow::close);
    window.setCentralWidget(&button);
    window.setWindowTitle(QStringLiteral("host-qt"));
    window.resize(400, 200);
    window.show();
    const int status = QApplication::exec();
    window.takeCentralWidget(); // the button belongs to this function
    return status;
}
