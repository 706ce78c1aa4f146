#include "windows/qt/QtApplication.h"

#include "windows/Window.h"
#include "windows/qt/QtTexts.h"

#include <QApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QMessageBox>
#include <QPluginLoader>
#include <QThread>
#include <algorithm>
#include <clocale>
#include <memory>
#include <string>

namespace jlandxml
{

namespace
{

/// A connection to a window server, closed with it. Null if no server answers at the environment's address. It is kept
/// until Qt has its own: a server may start anew when its last client goes.
using Connection = std::shared_ptr<void>;

Connection ConnectToX(QLibrary& plugin)
{
    const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(plugin.resolve("xcb_connect"));
    const auto hasError = reinterpret_cast<int (*)(void*)>(plugin.resolve("xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(plugin.resolve("xcb_disconnect"));
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr)
    {
        return nullptr;
    }
    const Connection connection(connect(nullptr, nullptr), disconnect);
    return hasError(connection.get()) == 0 ? connection : nullptr;
}

/// True if the environment says where a server's socket is. Without that the library complains on standard error.
bool HasWaylandAddress()
{
    return qEnvironmentVariableIsSet("WAYLAND_SOCKET") || qEnvironmentVariableIsSet("XDG_RUNTIME_DIR") ||
           qEnvironmentVariable("WAYLAND_DISPLAY").startsWith(QLatin1Char('/'));
}

Connection ConnectToWayland(QLibrary& plugin)
{
    const auto connect = reinterpret_cast<void* (*)(const char*)>(plugin.resolve("wl_display_connect"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(plugin.resolve("wl_display_disconnect"));
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

/// True if the platform's server answers, by a connection that is kept; a platform without a server needs none. It is
/// asked through the very library that Qt's file for the platform is linked with.
bool ServerAnswers(const QString& platform, QLibrary& plugin, Connection& kept)
{
    if (platform == QStringLiteral("xcb"))
    {
        kept = qEnvironmentVariableIsSet("DISPLAY") ? ConnectToX(plugin) : nullptr;
        return kept != nullptr;
    }
    if (platform.startsWith(QStringLiteral("wayland")))
    {
        kept = HasWaylandAddress() ? ConnectToWayland(plugin) : nullptr;
        return kept != nullptr;
    }
    return true;
}

/// True if Qt has this platform, with every library that it needs, and a server to show windows on. Qt itself can be
/// asked for its platforms only by its private interfaces, and by an attempt that ends the process.
bool IsUsable(const QString& platform, Connection& kept)
{
    const QString name = platform.section(QLatin1Char(':'), 0, 0);
    const QString file = PluginOf(name);
    QLibrary plugin(file);
    return !file.isEmpty() && plugin.load() && ServerAnswers(name, plugin, kept);
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

/// A pointer that doesn't tell to wait while the user has to answer.
class ArrowPointer
{
  public:
    ArrowPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ArrowPointer(const ArrowPointer&) = delete;
    ArrowPointer& operator=(const ArrowPointer&) = delete;
    ~ArrowPointer() { QApplication::restoreOverrideCursor(); }
};

/// The last of a window's owners that is seen.
QWidget* RootOwner(QWidget* window)
{
    QWidget* root = window;
    while (root->parentWidget() != nullptr && root->parentWidget()->window()->isVisible())
    {
        root = root->parentWidget()->window();
    }
    return root;
}

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

QWidget* OwnerOfNextWindow()
{
    if (QWidget* const modal = QApplication::activeModalWidget(); modal != nullptr)
    {
        return modal;
    }
    if (QWidget* const active = QApplication::activeWindow(); active != nullptr)
    {
        return RootOwner(active);
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto root = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        const bool ownWindow = window->windowType() == Qt::Window || window->windowType() == Qt::Dialog;
        return ownWindow && window->isVisible() && window->parentWidget() == nullptr;
    });
    return root != windows.end() ? *root : nullptr;
}

void ShowMessageBox(QWidget* parent, const std::wstring& text)
{
    const JapaneseTexts texts;
    const ArrowPointer arrow;
    QMessageBox box(QMessageBox::Warning, QString::fromWCharArray(MESSAGE_CAPTION), QString::fromStdWString(text),
                    QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.setAttribute(Qt::WA_QuitOnClose, false);
    box.exec();
}

} // namespace jlandxml
