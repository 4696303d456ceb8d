#pragma once

#include <QStringList>

namespace varnow {

/// Shows what is wrong with the entries of a page, below a sentence. Returns whether there was nothing to
/// show.
bool dataCheckPassed(const QString &header, const QStringList &problems);

/// The name index of a record to remove as it was typed; a blank one is 0. Raises errors::TypeMismatch and
/// errors::Overflow for what is no 32-bit number.
int typedIndex(const QString &text);

} // namespace varnow
