#include "inspect/OutputFile.h"

#include "base/Exceptions.h"
#include "base/Files.h"

namespace jlandxml::inspect
{

void WriteOutputFile(const std::wstring& path, const std::string& bytes)
{
    ReplacementFile target(path);
    target.Write(bytes);
    if (!target.Commit())
    {
        throw CFileException(L"書き込めません: " + path);
    }
}

} // namespace jlandxml::inspect
