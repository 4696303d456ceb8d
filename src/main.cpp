#include "app/start.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    const int exitCode = varnow::runProgram(argc, argv);
    // A thread that nobody waits for any more may still wait for a silent server. It must not wake up among
    // globals that are destroyed.
    std::fflush(nullptr);
    std::_Exit(exitCode);
}
