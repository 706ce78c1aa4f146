#include "base/ChildProcess.h"

namespace jlandxml
{

namespace
{

constexpr std::size_t PIPE_BLOCK_SIZE = std::size_t{64} << 10;

} // namespace

std::string ReadToEnd(NativeFile& file)
{
    std::string content;
    std::string block(PIPE_BLOCK_SIZE, '\0');
    for (;;)
    {
        const std::size_t taken = file.Read(block.data(), block.size()).value_or(0);
        if (taken == 0)
        {
            return content;
        }
        content.append(block, 0, taken);
    }
}

} // namespace jlandxml
