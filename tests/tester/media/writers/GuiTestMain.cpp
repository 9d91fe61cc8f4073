// Time stamps are drawn with fonts, which need a GUI application (offscreen in tests).
#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
