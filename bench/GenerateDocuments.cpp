// Writes a work folder to measure.
//
//   bench_documents NAME SIZE FOLDER      FOLDER is made; SIZE 0 is the full size
//   bench_documents                       tells the names and their full sizes

#include "BenchDocuments.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

int main(int count, char** values)
{
    using namespace jlandxml;
    const auto documents = BenchDocuments();
    if (count != 4)
    {
        for (const BenchDocument& document : documents)
        {
            std::cout << document.name << ' ' << document.size << '\n';
        }
        return count == 1 ? 0 : 2;
    }
    const auto document = std::find_if(documents.begin(), documents.end(),
                                       [&](const BenchDocument& one) { return one.name == values[1]; });
    if (document == documents.end())
    {
        return 2;
    }
    const int size = std::atoi(values[2]);
    std::filesystem::create_directories(values[3]);
    WriteWorkFolder(values[3], *document, size > 0 ? size : document->size);
    return 0;
}
