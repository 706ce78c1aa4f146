#pragma once

#ifdef __linux__

#include <filesystem>
#include <sched.h>
#include <sys/mount.h>

namespace jlandxml
{

/// Something mounted over a path for one test, seen by this test program alone. Only an administrator may mount.
class MountedFolder
{
  public:
    /// A volume of `options` such as "size=64k".
    MountedFolder(const std::filesystem::path& path, const char* options)
        : path_(path),
          mounted_(IsAlone() && ::mount("tmpfs", path.c_str(), "tmpfs", 0, options) == 0)
    {}
    /// One file under the name of another.
    MountedFolder(const std::filesystem::path& path, const std::filesystem::path& source)
        : path_(path),
          mounted_(IsAlone() && ::mount(source.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) == 0)
    {}
    MountedFolder(const MountedFolder&) = delete;
    MountedFolder& operator=(const MountedFolder&) = delete;
    ~MountedFolder()
    {
        if (mounted_)
        {
            ::umount2(path_.c_str(), MNT_DETACH);
        }
    }

    explicit operator bool() const { return mounted_; }

  private:
    static bool IsAlone()
    {
        return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }

    std::filesystem::path path_;
    bool mounted_;
};

} // namespace jlandxml

#endif
