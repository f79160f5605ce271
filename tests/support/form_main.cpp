#include "tests/support/wholereruns.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    testing::AddGlobalTestEnvironment(new WholeReruns);
    return RUN_ALL_TESTS();
}
