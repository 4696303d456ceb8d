#include "ui/Application.h"
#include "ui/MessageBox.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs the tests of one room with windows. A message box that no test expects would wait for a user for
/// ever, so it fails the test instead.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir state; // nothing is kept in the user's own folder
    qputenv("XDG_STATE_HOME", state.path().toUtf8());
    const varnow::ui::Application application(argc, argv);
    varnow::ui::setMessageBoxHandler([](const varnow::ui::MessageBox &box) {
        ADD_FAILURE() << "Unexpected message box: " << qPrintable(box.title) << ": " << qPrintable(box.text);
        return varnow::ui::Answer::Ok;
    });
    return RUN_ALL_TESTS();
}
