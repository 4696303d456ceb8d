#pragma once

#include <QStringList>

#include <functional>

class QWidget;

namespace varnow::ui {

/// Lets files be dropped anywhere on a window. The handler acts later, so that the program where the files
/// come from does not wait.
void acceptFileDrops(QWidget &window, const std::function<void(const QStringList &paths)> &onDropped);

} // namespace varnow::ui
