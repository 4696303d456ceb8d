#pragma once

#include "ui/Window.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>

namespace varnow::test {

/// Does something as soon as it can, within some seconds. `attempt` returns whether it could.
inline void whenPossible(const std::function<bool()> &attempt, int tries = 500)
{
    QTimer::singleShot(10, qApp, [attempt, tries] {
        if (attempt())
            return;
        ASSERT_GT(tries, 0) << "A window that the test expects did not open.";
        whenPossible(attempt, tries - 1);
    });
}

/// Does something with a window, found by its name, as soon as it is loaded.
inline void whenLoaded(const QString &name, const std::function<void(ui::Window &)> &act)
{
    whenPossible([name, act] {
        for (ui::Window *window : ui::Window::loadedWindows()) {
            if (window->surface()->window()->objectName() == name && window->surface()->isVisible()) {
                act(*window);
                return true;
            }
        }
        return false;
    });
}

/// Types a path each into the file dialogs that open next, and accepts them. An empty one cancels the dialog.
inline void answerFileDialogs(QStringList paths)
{
    whenPossible([paths]() mutable {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return false;
        const QString path = paths.takeFirst();
        if (!paths.isEmpty())
            QTimer::singleShot(0, qApp, [paths] { answerFileDialogs(paths); });
        if (path.isEmpty()) {
            dialog->reject();
            return true;
        }
        auto *entry = dialog->findChild<QLineEdit *>();
        entry->setText(path);
        QTest::keyClick(entry, Qt::Key_Return);
        return true;
    });
}

} // namespace varnow::test
