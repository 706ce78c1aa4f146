#include "cli/HostCall.h"

#include "base/Files.h"
#include "base/Text.h"
#include "cli/Paths.h"
#include "run/module/ExecuteQuorvane.h"

#include <filesystem>

#ifdef _WIN32
#include <array>
#include <windows.h>
#else
#include <dlfcn.h>
#include <unistd.h>
#endif

namespace jlandxml
{

namespace
{

constexpr const char* EXPORTED_NAME = "ExecuteQuorvane";

/// Where the module may be, as seen from the program's folder: beside it, and where the two are installed.
constexpr const char* MODULE_FOLDERS[] = {"", JLANDXML_MODULE_FOLDER};

#ifdef _WIN32

constexpr const char* MODULE_NAME = "JLandXmlConvert.dll";

std::wstring ThisProgram()
{
    std::array<wchar_t, 32768> buffer{};
    const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    return {buffer.data(), length};
}

/// A loaded module, unloaded with its scope.
class Module
{
  public:
    /// What the module needs of the system comes from the system's folder, whatever lies beside it.
    explicit Module(const std::wstring& path)
        : handle_(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32))
    {}
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module()
    {
        if (handle_ != nullptr)
        {
            FreeLibrary(handle_);
        }
    }

    ExecuteQuorvaneFunction Find() const
    {
        return handle_ != nullptr ? reinterpret_cast<ExecuteQuorvaneFunction>(
                                        reinterpret_cast<void*>(GetProcAddress(handle_, EXPORTED_NAME)))
                                  : nullptr;
    }

    /// The system always has one.
    static bool HasFoundDisplay() { return true; }

  private:
    HMODULE handle_;
};

#else

/// With the number of the interface that this program was made for.
constexpr const char* MODULE_NAME = "libJLandXmlConvert.so." JLANDXML_MODULE_SOVERSION;

std::wstring ThisProgram()
{
    std::string buffer(4096, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", buffer.data(), buffer.size());
    buffer.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return WideFromUtf8(buffer);
}

/// A loaded module. It stays, since the toolkit of its windows doesn't take being unloaded.
class Module
{
  public:
    explicit Module(const std::wstring& path) : handle_(::dlopen(Utf8FromWide(path).c_str(), RTLD_NOW | RTLD_LOCAL)) {}

    ExecuteQuorvaneFunction Find() const
    {
        return handle_ != nullptr ? reinterpret_cast<ExecuteQuorvaneFunction>(::dlsym(handle_, EXPORTED_NAME))
                                  : nullptr;
    }

    /// The toolkit's application object is made for the first window, where there is a display to show it; until then
    /// QCoreApplication::startingUp() is true.
    bool HasFoundDisplay() const
    {
        const auto isStartingUp = reinterpret_cast<bool (*)()>(::dlsym(handle_, "_ZN16QCoreApplication10startingUpEv"));
        return isStartingUp == nullptr || !isStartingUp();
    }

  private:
    void* handle_;
};

#endif

} // namespace

std::wstring ProgramPath()
{
    return ThisProgram();
}

std::wstring ModulePath()
{
    const std::filesystem::path programs = PathOf(FolderOf(ProgramPath()));
    std::wstring beside;
    for (const char* const folder : MODULE_FOLDERS)
    {
        const std::u8string path = (programs / folder / MODULE_NAME).lexically_normal().make_preferred().u8string();
        const std::wstring wide = WideFromUtf8(std::string(path.begin(), path.end()));
        if (PathExists(wide))
        {
            return wide;
        }
        beside = beside.empty() ? wide : beside;
    }
    return beside;
}

ModuleCall CallModule(const std::wstring& workFolder, std::int32_t routeCount)
{
    const std::wstring path = ModulePath();
    // A program that doesn't know where it is would have the current folder searched, which anybody may have filled.
    if (!PathOf(path).is_absolute())
    {
        return ModuleCall::NotLoaded;
    }
    const Module module(path);
    const ExecuteQuorvaneFunction function = module.Find();
    if (function == nullptr)
    {
        return ModuleCall::NotLoaded;
    }
    function(workFolder.c_str(), routeCount);
    return module.HasFoundDisplay() ? ModuleCall::Made : ModuleCall::NoDisplay;
}

} // namespace jlandxml
