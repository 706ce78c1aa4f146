#include "framework/qt/QtApplication.h"

#include <QApplication>
#include <QThread>
#include <algorithm>
#include <clocale>
#include <dlfcn.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace jlandxml
{

namespace
{

/// True if the X server answers. Qt ends the process when it can't open a display, and the process is the host's.
bool XServerAnswers()
{
    void* const library = ::dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
    {
        return false;
    }
    const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(::dlsym(library, "xcb_connect"));
    const auto hasError = reinterpret_cast<int (*)(void*)>(::dlsym(library, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(::dlsym(library, "xcb_disconnect"));
    bool answers = false;
    if (connect != nullptr && hasError != nullptr && disconnect != nullptr)
    {
        void* const connection = connect(nullptr, nullptr);
        answers = hasError(connection) == 0;
        disconnect(connection);
    }
    ::dlclose(library);
    return answers;
}

/// True if the Wayland compositor takes a connection.
bool WaylandAnswers()
{
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    const QByteArray path = name.startsWith('/') ? name : qgetenv("XDG_RUNTIME_DIR") + '/' + name;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof(address.sun_path))
    {
        return false;
    }
    std::copy(path.begin(), path.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool answers = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    ::close(socket);
    return answers;
}

/// True if the platform that Qt will take has a display that answers; those without a display need none.
bool HasDisplay()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.isEmpty())
    {
        return XServerAnswers() || WaylandAnswers();
    }
    if (platform.startsWith("xcb"))
    {
        return XServerAnswers();
    }
    return !platform.startsWith("wayland") || WaylandAnswers();
}

/// Qt takes over the locale of the environment for the whole process; the host keeps its own.
class LocaleScope
{
  public:
    LocaleScope() : locale_(std::setlocale(LC_ALL, nullptr)) {}
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;
    ~LocaleScope() { std::setlocale(LC_ALL, locale_.c_str()); }

  private:
    std::string locale_;
};

void MakeApplication()
{
    static int argumentCount = 1;
    static char programName[] = "jlandxml-convert";
    static char* arguments[] = {programName, nullptr};
    const LocaleScope locale;
    // Never deleted: the toolkit doesn't take a second one in one process well, and a later call may come at any time.
    (new QApplication(argumentCount, arguments))->setQuitOnLastWindowClosed(false);
}

} // namespace

bool EnsureApplication()
{
    if (QCoreApplication::instance() == nullptr)
    {
        if (!HasDisplay())
        {
            return false;
        }
        MakeApplication();
    }
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr &&
           QThread::currentThread() == QCoreApplication::instance()->thread();
}

} // namespace jlandxml
