#include <QCoreApplication>

#include <gtest/gtest.h>

/// Runs the tests of one room that needs no windows; it is linked without the windowing toolkit.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
