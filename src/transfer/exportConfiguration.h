#pragma once

#include "model/Model.h"

#include <optional>

namespace varnow {

/// Asks for a file and writes what is in memory of a configuration into it, saved or not. Returns the
/// sentence that tells so; nothing where nothing was written, which the user knows.
std::optional<QString> exportConfiguration(const Model &model, const QString &configuration);

} // namespace varnow
