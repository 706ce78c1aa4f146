#include "cli/HostCall.h"

#include "base/Files.h"
#include "base/Text.h"
#include "run/module/ExecuteQuorvane.h"

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

#ifdef _WIN32

constexpr const wchar_t* MODULE_NAME = L"JLandXmlConvert.dll";

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
    explicit Module(const std::wstring& path) : handle_(LoadLibraryW(path.c_str())) {}
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

constexpr const wchar_t* MODULE_NAME = L"libJLandXmlConvert.so";

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
    return std::wstring(FolderOf(ProgramPath())) + MODULE_NAME;
}

ModuleCall CallModule(const std::wstring& workFolder, std::int32_t routeCount)
{
    const Module module(ModulePath());
    const ExecuteQuorvaneFunction function = module.Find();
    if (function == nullptr)
    {
        return ModuleCall::NotLoaded;
    }
    function(workFolder.c_str(), routeCount);
    return module.HasFoundDisplay() ? ModuleCall::Made : ModuleCall::NoDisplay;
}

} // namespace jlandxml
