#include "framework/qt/QtApplication.h"

#include <QApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>
#include <QThread>
#include <algorithm>
#include <clocale>
#include <dlfcn.h>
#include <string>

namespace jlandxml
{

namespace
{

/// True if the library of a window protocol, which Qt loads too, finds a server at the end of the environment's
/// address.
bool Connects(const char* libraryName, bool (*connects)(void* library))
{
    void* const library = ::dlopen(libraryName, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
    {
        return false;
    }
    const bool answers = connects(library);
    ::dlclose(library);
    return answers;
}

bool ConnectsToX(void* library)
{
    const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(::dlsym(library, "xcb_connect"));
    const auto hasError = reinterpret_cast<int (*)(void*)>(::dlsym(library, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(::dlsym(library, "xcb_disconnect"));
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr)
    {
        return false;
    }
    void* const connection = connect(nullptr, nullptr);
    const bool connected = hasError(connection) == 0;
    disconnect(connection);
    return connected;
}

bool ConnectsToWayland(void* library)
{
    const auto connect = reinterpret_cast<void* (*)(const char*)>(::dlsym(library, "wl_display_connect"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(::dlsym(library, "wl_display_disconnect"));
    void* const display = connect != nullptr ? connect(nullptr) : nullptr;
    if (display == nullptr || disconnect == nullptr)
    {
        return false;
    }
    disconnect(display);
    return true;
}

/// The file with which Qt serves a platform; empty if it has none.
QString PluginOf(const QString& platform)
{
    QStringList folders = QCoreApplication::libraryPaths();
    std::for_each(folders.begin(), folders.end(), [](QString& folder) { folder += QStringLiteral("/platforms"); });
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM_PLUGIN_PATH"))
    {
        folders << qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH");
    }
    for (const QString& folder : folders)
    {
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files))
        {
            const QJsonObject data = QPluginLoader(file.filePath()).metaData();
            if (data[QStringLiteral("MetaData")][QStringLiteral("Keys")].toArray().contains(platform))
            {
                return file.filePath();
            }
        }
    }
    return {};
}

bool ServerAnswers(const QString& platform)
{
    if (platform == QStringLiteral("xcb"))
    {
        return qEnvironmentVariableIsSet("DISPLAY") && Connects("libxcb.so.1", ConnectsToX);
    }
    return !platform.startsWith(QStringLiteral("wayland")) || Connects("libwayland-client.so.0", ConnectsToWayland);
}

/// True if Qt has this platform, with every library that it needs, and a server to show windows on.
bool IsUsable(const QString& platform)
{
    const QString name = platform.section(QLatin1Char(':'), 0, 0);
    const QString plugin = PluginOf(name);
    return !plugin.isEmpty() && ServerAnswers(name) && QPluginLoader(plugin).load();
}

/// The platforms that Qt tries, in its order.
QStringList Platforms()
{
    const QString named = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (!named.isEmpty())
    {
        return named.split(QLatin1Char(';'));
    }
    QStringList platforms{QStringLiteral("xcb")};
    if (qEnvironmentVariable("XDG_SESSION_TYPE") == QStringLiteral("wayland"))
    {
        platforms << QStringLiteral("wayland");
    }
    return platforms;
}

/// True if Qt comes up. Where it finds no display it ends the process, and the process is the host's.
bool HasDisplay()
{
    const QStringList platforms = Platforms();
    return std::any_of(platforms.begin(), platforms.end(), IsUsable);
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
