// Makes work folders with settings: generate_folders SEED COUNT DIR writes DIR/000001 and so on, the same bytes for the
// same seed. A folder with an odd number is as a host writes it, one with an even number has something amiss.

#include "support/generator/WorkFolderGenerator.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

int main(int count, char** values)
{
    if (count != 4)
    {
        std::cerr << "usage: generate_folders SEED COUNT DIR\n";
        return EXIT_FAILURE;
    }
    try
    {
        const std::uint64_t seed = std::stoull(values[1]);
        const auto folders = static_cast<std::uint32_t>(std::stoul(values[2]));
        for (std::uint32_t number = 1; number <= folders; ++number)
        {
            std::string name = std::to_string(number);
            name.insert(0, name.size() < 6 ? 6 - name.size() : 0, '0');
            const auto folder = jlandxml::generator::MakeWorkFolder(seed, number);
            jlandxml::generator::WriteFiles(folder.files, std::filesystem::path(values[3]) / name);
        }
    }
    catch (const std::exception& exception)
    {
        std::cerr << exception.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
