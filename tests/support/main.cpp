#include "testprogram.h"

int main(int argc, char **argv)
{
    return TestProgram::run(argc, argv);
}
