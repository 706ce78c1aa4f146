#include "support/generator/WorkFolderGenerator.h"

#include "support/generator/HostFolder.h"

#include <fstream>

namespace jlandxml::generator
{

namespace
{

FolderFiles HostFiles(const Draft& draft)
{
    FolderFiles files;
    files.emplace_back("Landxml_temp.xml",
                       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n" + XmlText(draft.landXml, "\r\n"));
    for (const SideFile& file : draft.sideFiles)
    {
        files.emplace_back(file.name, CsvText(file, "\r\n"));
    }
    files.emplace_back("settings.json", JsonText(draft.settings));
    return files;
}

} // namespace

WorkFolder MakeWorkFolder(std::uint64_t seed, std::uint32_t number)
{
    // Each folder has a stream of its own, so that one can be made without those before it.
    SplitMix64 random(SplitMix64(seed).Next() + number);
    random.Next();
    Draft draft = DrawHostFolder(random);
    WorkFolder folder;
    folder.hostLike = number % 2 == 1;
    folder.files = folder.hostLike ? HostFiles(draft) : OddFiles(random, std::move(draft), folder.oddities);
    return folder;
}

void WriteFiles(const FolderFiles& files, const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (const auto& [name, bytes] : files)
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
}

} // namespace jlandxml::generator
