#pragma once

namespace jlandxml
{

/// The functions of the system that a test can make fail.
enum class SystemCall
{
    Write,
    Sync,
    Shorten,
    Reserve,
    Rename,
    ChangeOwner,
    ChangeMode,
    Close,
    ReadFolder,
    Read,
    Status,
    StatusOfName,
    OpenMode,
    Seek,
    Volume,
    GetAttribute,
    SetAttribute,
    Access,
    Random,
    Duplicate,
    Count
};

/// While it lives, calls of one of the system's functions fail as the system tells it by `error`: all of them, or those
/// that follow `allowed` others.
class FailingCalls
{
  public:
    FailingCalls(SystemCall call, int error, int allowed = 0);
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;
    ~FailingCalls();

    /// Lets the calls succeed again after so many have failed.
    FailingCalls& Times(int times);

    /// True once a call has failed.
    bool HasFailed() const;

  private:
    SystemCall call_;
};

/// While it lives, the first few calls for random bytes give the same ones.
class RepeatedRandom
{
  public:
    explicit RepeatedRandom(int times);
    RepeatedRandom(const RepeatedRandom&) = delete;
    RepeatedRandom& operator=(const RepeatedRandom&) = delete;
    ~RepeatedRandom();
};

/// How often the permissions that new files don't get were asked for or changed, for the whole process.
int UserMaskCalls();

} // namespace jlandxml
