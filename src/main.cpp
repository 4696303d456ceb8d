#include "app/start.h"

int main(int argc, char **argv)
{
    return varnow::runProgram(argc, argv);
}
