#pragma once

#include "model/Model.h"

#include <QByteArray>

namespace varnow {

/// A CSV file of a configuration's lines and fields, from which an import makes equal records.
QByteArray exportCsv(const Model &model, const QString &configuration);

/// The names of all columns that such a file has, in their order.
QStringList csvHeader();

} // namespace varnow
