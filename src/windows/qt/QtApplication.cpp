#include "windows/qt/QtApplication.h"

#include <QApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QMessageBox>
#include <QPluginLoader>
#include <QThread>
#include <algorithm>
#include <clocale>
#include <dlfcn.h>
#include <memory>
#include <string>

namespace jlandxml
{

namespace
{

/// A connection to a window server, closed with it. Null if no server answers at the environment's address. It is kept
/// until Qt has its own: a server may start anew when its last client goes.
using Connection = std::shared_ptr<void>;

/// Connects through the library of a window protocol, which Qt loads too.
Connection Connect(const char* libraryName, Connection (*connect)(void* library))
{
    void* const library = ::dlopen(libraryName, RTLD_NOW | RTLD_LOCAL);
    return library != nullptr ? connect(library) : nullptr;
}

Connection ConnectToX(void* library)
{
    const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(::dlsym(library, "xcb_connect"));
    const auto hasError = reinterpret_cast<int (*)(void*)>(::dlsym(library, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(::dlsym(library, "xcb_disconnect"));
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr)
    {
        return nullptr;
    }
    const Connection connection(connect(nullptr, nullptr), disconnect);
    return hasError(connection.get()) == 0 ? connection : nullptr;
}

Connection ConnectToWayland(void* library)
{
    const auto connect = reinterpret_cast<void* (*)(const char*)>(::dlsym(library, "wl_display_connect"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(::dlsym(library, "wl_display_disconnect"));
    if (connect == nullptr || disconnect == nullptr)
    {
        return nullptr;
    }
    void* const display = connect(nullptr);
    return display != nullptr ? Connection(display, disconnect) : nullptr;
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

/// True if the platform's server answers, by a connection that is kept; a platform without a server needs none.
bool ServerAnswers(const QString& platform, Connection& kept)
{
    if (platform == QStringLiteral("xcb"))
    {
        kept = qEnvironmentVariableIsSet("DISPLAY") ? Connect("libxcb.so.1", ConnectToX) : nullptr;
        return kept != nullptr;
    }
    if (platform.startsWith(QStringLiteral("wayland")))
    {
        kept = Connect("libwayland-client.so.0", ConnectToWayland);
        return kept != nullptr;
    }
    return true;
}

/// True if Qt has this platform, with every library that it needs, and a server to show windows on.
bool IsUsable(const QString& platform, Connection& kept)
{
    const QString name = platform.section(QLatin1Char(':'), 0, 0);
    const QString plugin = PluginOf(name);
    return !plugin.isEmpty() && ServerAnswers(name, kept) && QPluginLoader(plugin).load();
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
bool HasDisplay(Connection& kept)
{
    const QStringList platforms = Platforms();
    return std::any_of(platforms.begin(), platforms.end(),
                       [&](const QString& platform) { return IsUsable(platform, kept); });
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
        Connection kept;
        if (!HasDisplay(kept))
        {
            return false;
        }
        MakeApplication();
    }
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr &&
           QThread::currentThread() == QCoreApplication::instance()->thread();
}

void ShowMessageBox(QWidget* parent, const std::wstring& text, MessageIcon icon)
{
    QMessageBox box(icon == MessageIcon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon,
                    QString::fromWCharArray(MESSAGE_CAPTION), QString::fromStdWString(text), QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.setAttribute(Qt::WA_QuitOnClose, false);
    box.exec();
}

} // namespace jlandxml
