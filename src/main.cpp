#include "startup/Main.h"

int main(int argc, char **argv)
{
    return varnow::Main(argc, argv);
}
