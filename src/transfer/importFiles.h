#pragma once

#include "document/Document.h"

#include <QStringList>

namespace varnow {

/// Shows what importing files would do, and does it where the user wants that, as one step. Returns the
/// configuration to show then, nothing where nothing was done.
std::optional<QString> importFiles(Document &document, const QStringList &paths);

} // namespace varnow
