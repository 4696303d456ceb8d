#pragma once

#include <QStringList>

namespace varnow {

/// Shows what is wrong with the entries of a page, below a sentence. Returns whether there was nothing to
/// show.
bool dataCheckPassed(const QString &header, const QStringList &problems);

} // namespace varnow
