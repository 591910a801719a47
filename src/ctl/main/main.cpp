#include "ctl/CommandLine.h"

int main(int argc, char** argv)
{
    return zolva::ctl::run(argc, argv);
}
