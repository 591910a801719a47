#include "app/Program.h"

int main(int argc, char** argv)
{
    zolva::runProgram(argc, argv);
}
