#pragma once

#include "base/Text.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace jlandxml
{

/// A path of the file system library, which would otherwise convert wide names by the process's locale.
inline std::filesystem::path NativePath(const std::wstring& name)
{
#ifdef _WIN32
    return name;
#else
    return Utf8FromWide(name);
#endif
}

inline std::wstring WideName(const std::filesystem::path& path)
{
#ifdef _WIN32
    return path.wstring();
#else
    return WideFromUtf8(path.string());
#endif
}

/// A folder of its own for one test, gone with it.
class TestFolder
{
  public:
    TestFolder()
    {
        static std::atomic<unsigned> count{0};
        path_ = std::filesystem::temp_directory_path() /
                ("jlandxml-test-" + std::to_string(std::random_device{}()) + "-" + std::to_string(count++));
        std::filesystem::create_directories(path_);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& Path() const { return path_; }

    /// The name of a file in the folder as the converter takes it.
    std::wstring Name(const std::wstring& file = L"") const
    {
        return WideName(file.empty() ? path_ : path_ / NativePath(file));
    }

    /// Writes a file of the folder.
    std::wstring Write(const std::wstring& file, const std::string& bytes) const
    {
        std::ofstream(path_ / NativePath(file), std::ios::binary) << bytes;
        return Name(file);
    }

    /// The bytes of a file of the folder.
    std::string Read(const std::wstring& file) const
    {
        std::ifstream stream(path_ / NativePath(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// The names of the files in the folder, sorted.
    std::vector<std::wstring> Files() const
    {
        std::vector<std::wstring> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
        {
            names.push_back(WideName(entry.path().filename()));
        }
        std::sort(names.begin(), names.end());
        return names;
    }

  private:
    std::filesystem::path path_;
};

/// Sets the environment variables that name the user's temporary folder, and puts them back.
class TemporaryFolderOverride
{
  public:
    explicit TemporaryFolderOverride(const std::filesystem::path& folder)
    {
        const char* const former = std::getenv(VARIABLE);
        former_ = former != nullptr ? former : "";
        Set(folder.string());
    }
    TemporaryFolderOverride(const TemporaryFolderOverride&) = delete;
    TemporaryFolderOverride& operator=(const TemporaryFolderOverride&) = delete;
    ~TemporaryFolderOverride() { Set(former_); }

  private:
#ifdef _WIN32
    static constexpr const char* VARIABLE = "TMP";
    static void Set(const std::string& value)
    {
        _putenv_s(VARIABLE, value.c_str());
    }
#else
    static constexpr const char* VARIABLE = "TMPDIR";
    static void Set(const std::string& value)
    {
        if (value.empty())
        {
            unsetenv(VARIABLE);
        }
        else
        {
            setenv(VARIABLE, value.c_str(), 1);
        }
    }
#endif

    std::string former_;
};

} // namespace jlandxml
