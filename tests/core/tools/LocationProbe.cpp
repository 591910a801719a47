#include "core/MoLocation.h"
#include "core/Resources.h"

#include <iostream>
#include <string>

// Tells where this process finds the tool, once for each line it reads; a line "again" makes it
// search anew instead of telling the place it knows.
int main()
{
    std::string line;
    while (std::getline(std::cin, line)) {
        using namespace zolva;
        const MoLocation found =
            line == "again" ? findMo(resourceFolders(), installedMo()) : moLocation();
        std::cout << found.path << std::endl;
    }
}
