#pragma once

#include "ui/Window.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
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

/// Types a path into the file dialog that opens next, and accepts it. `button` answers the question whether a
/// file is to be replaced; with No the dialog is cancelled.
inline void answerFileDialog(const QString &path, const QString &button = {})
{
    whenPossible([path, button] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return false;
        if (!button.isEmpty()) {
            whenPossible([dialog, button] {
                auto *question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                if (question == nullptr)
                    return false;
                const bool replaces = button == "Yes";
                question->button(replaces ? QMessageBox::Yes : QMessageBox::No)->click();
                if (!replaces)
                    QTimer::singleShot(0, dialog, &QDialog::reject);
                return true;
            });
        }
        auto *entry = dialog->findChild<QLineEdit *>();
        entry->setText(path);
        QTest::keyClick(entry, Qt::Key_Return);
        return true;
    });
}

} // namespace varnow::test
